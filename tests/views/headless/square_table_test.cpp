#include "views/board/square_table.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(SquareGeometry, BoardSizeIsRoundedWithinItsLimits) {
    struct Row {
        int requested, expected;
    };
    for (const Row& row : {Row{359, 560}, Row{360, 360}, Row{567, 560}, Row{568, 568}, Row{1199, 1192},
                           Row{1200, 1200}, Row{1201, 560}, Row{0, 560}, Row{-8, 560}}) {
        EXPECT_EQ(board_size(row.requested), row.expected) << row.requested;
    }
}

TEST(SquareGeometry, PointsFindTheirSquare) {
    struct Row {
        const char* name;
        double x, y;
        Square expected;
    };
    const CellSize cell{70, 70};
    for (const Row& row :
         {Row{"upper left corner is a8", 0, 0, Square(56)}, Row{"lower left is a1", 0, 559.9, Square(0)},
          Row{"lower right is h1", 559.9, 559.9, Square(7)}, Row{"inner border", 70, 489, Square(9)},
          Row{"left of the board", -0.5, 10, {}}, Row{"above", 10, -0.1, {}},
          Row{"on the right edge", 560, 10, {}}, Row{"on the lower edge", 10, 560, {}}}) {
        EXPECT_EQ(square_at(row.x, row.y, cell).value_or(no_square), row.expected) << row.name;
    }
    EXPECT_EQ(square_at(1, 1, {0, 0}), std::nullopt);
}

constexpr Square c1(2), f1(5), f3(21), g1(6), g3(22);
const Piece knight(PieceKind::knight, Side::white), pawn(PieceKind::pawn, Side::black);

/// A table with a white knight on g1 and a black pawn on f3.
SquareTable two_pieces() {
    SquareTable table;
    table.set_piece(knight, g1);
    table.set_piece(pawn, f3);
    return table;
}

TEST(SquareTable, DragEndsWhereItMust) {
    using Move = std::pair<Square, Square>;
    struct Row {
        const char* name;
        std::optional<Square> press, release;
        std::optional<Move> move;
        bool stays;
    };
    for (const Row& row :
         {Row{"back to its own square", g1, g1, Move{g1, g1}, true},
          Row{"let go beside the board", g1, {}, Move{g1, g1}, true},
          Row{"from an empty square to another", c1, f1, Move{f1, f1}, true},
          Row{"from an empty square to a piece", c1, g1, Move{g1, g1}, true},
          Row{"press beside the board", {}, f1, Move{f1, f1}, true},
          Row{"release beside the board without a piece", c1, {}, {}, true},
          Row{"away", g1, g3, Move{g1, g3}, false}, Row{"onto another piece", g1, f3, Move{g1, f3}, false}}) {
        SquareTable table = two_pieces();
        table.begin_drag(row.press, {});
        EXPECT_EQ(table.end_drag(row.release), row.move) << row.name;
        EXPECT_EQ(table.piece_on(g1), row.stays ? knight : no_piece) << row.name;
        EXPECT_FALSE(table.dragging()) << row.name;
    }
}

TEST(SquareTable, NewPositionDuringADragKeepsThePieceInTheAirOrLetsItGo) {
    SquareTable table = two_pieces();
    const Placement before = table.pieces();
    table.begin_drag(g1, {});
    table.set_pieces(before);
    EXPECT_TRUE(table.dragging());
    EXPECT_EQ(table.piece_on(g1), no_piece) << "it must not be seen twice";
    table.set_pieces({});
    EXPECT_FALSE(table.dragging());
}

TEST(SquareTable, TurningPutsEverythingOppositeAlsoThePieceInTheAir) {
    SquareTable table = two_pieces();
    table.begin_drag(g1, {});
    table.turn();
    EXPECT_EQ(table.piece_on(turned(g1)), knight);
    EXPECT_EQ(table.piece_on(turned(f3)), pawn);
}

}  // namespace
}  // namespace velmora
