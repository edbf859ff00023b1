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

constexpr Square f3(21), g1(6);
const Piece knight(PieceKind::knight, Side::white), pawn(PieceKind::pawn, Side::black);

/// A table with a white knight on g1 and a black pawn on f3.
SquareTable two_pieces() {
    SquareTable table;
    table.set_piece(knight, g1);
    table.set_piece(pawn, f3);
    return table;
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
