#include "views/board/square_table.h"

#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/thrown_text.h"

namespace velmora {
namespace {

const std::string start_position =
    "RNBQKBNR"
    "PPPPPPPP"
    "????????????????????????????????"
    "pppppppp"
    "rnbqkbnr";

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
        std::optional<int> expected;
    };
    const CellSize cell{70, 70};
    for (const Row& row : {Row{"upper left corner is a8", 0, 0, 56}, Row{"lower left is a1", 0, 559.9, 0},
                           Row{"lower right is h1", 559.9, 559.9, 7}, Row{"inner border", 70, 489, 9},
                           Row{"left of the board", -0.5, 10, {}}, Row{"above", 10, -0.1, {}},
                           Row{"on the right edge", 560, 10, {}}, Row{"on the lower edge", 10, 560, {}}}) {
        EXPECT_EQ(square_at(row.x, row.y, cell), row.expected) << row.name;
    }
    EXPECT_EQ(square_at(1, 1, {0, 0}), std::nullopt);
}

TEST(SquareTable, BackgroundAlternatesFromADarkCorner) {
    const SquareTable table;
    EXPECT_EQ(table.background(0), 7);
    EXPECT_EQ(table.background(7), 0);
    EXPECT_EQ(table.background(8), 0);
    EXPECT_EQ(table.background(63), 7);
    EXPECT_EQ(table.code(27), table.background(27));
}

TEST(SquareTable, LettersBecomeCodes) {
    SquareTable table;
    table.set_pieces(start_position);
    const std::string rank_1 = {4, 2, 3, 5, 6, 3, 2, 4}, rank_8 = {11, 9, 10, 12, 13, 10, 9, 11};
    for (int file = 0; file < 8; ++file) {
        EXPECT_EQ(table.code(file), rank_1[std::size_t(file)]);
        EXPECT_EQ(table.code(8 + file), 1);
        EXPECT_EQ(table.code(48 + file), 8);
        EXPECT_EQ(table.code(56 + file), rank_8[std::size_t(file)]);
    }
    EXPECT_EQ(table.code(35), table.background(35));
}

TEST(SquareTable, UnknownLetterThrowsAndChangesNothing) {
    SquareTable table;
    table.set_pieces(start_position);
    const auto before = table.squares();
    std::string wrong = start_position;
    wrong[63] = 'x';
    const std::string expected = "Drawing::set_parent_window(Gtk::Window*)  unknown piece";
    EXPECT_EQ(test::thrown_text([&] { table.set_pieces(wrong); }), expected);
    EXPECT_EQ(test::thrown_text([&] { table.set_piece('1', 3); }), expected);
    EXPECT_EQ(table.squares(), before);
    EXPECT_THROW(table.set_piece('P', 64), std::out_of_range);
    EXPECT_THROW(table.set_pieces("????"), std::logic_error);
}

/// A table with a white knight on g1 and a black pawn on f3.
SquareTable two_pieces() {
    SquareTable table;
    table.set_piece('N', 6);
    table.set_piece('p', 21);
    return table;
}

TEST(SquareTable, DragEndsWhereItMust) {
    struct Row {
        const char* name;
        std::optional<int> press, release;
        std::optional<std::pair<int, int>> move;
        int code_on_g1;
    };
    using Move = std::pair<int, int>;
    for (const Row& row :
         {Row{"back to its own square", 6, 6, Move{6, 6}, 2},
          Row{"let go beside the board", 6, {}, Move{6, 6}, 2},
          Row{"from an empty square to another", 30, 31, Move{31, 31}, 2},
          Row{"from an empty square to a piece", 30, 6, Move{6, 6}, 2},
          Row{"press beside the board", {}, 31, Move{31, 31}, 2},
          Row{"release beside the board without a piece", 30, {}, {}, 2}, Row{"away", 6, 23, Move{6, 23}, 7},
          Row{"onto another piece", 6, 21, Move{6, 21}, 7}}) {
        SquareTable table = two_pieces();
        table.begin_drag(row.press, {});
        EXPECT_EQ(table.end_drag(row.release), row.move) << row.name;
        EXPECT_EQ(table.code(6) == 2, row.code_on_g1 == 2) << row.name;
        EXPECT_FALSE(table.dragging()) << row.name;
    }
}

TEST(SquareTable, NewPositionDuringADragKeepsTheManInTheAirOrLetsHimGo) {
    SquareTable table = two_pieces();
    table.begin_drag(6, {});
    std::string letters(64, '?');
    letters[6] = 'N';
    table.set_pieces(letters);
    EXPECT_TRUE(table.dragging());
    EXPECT_EQ(table.code(6), table.background(6)) << "it must not be seen twice";
    letters[6] = 'r';
    table.set_pieces(letters);
    EXPECT_FALSE(table.dragging());
    EXPECT_EQ(table.code(6), 11);
}

TEST(SquareTable, TurningPutsEverythingOppositeAlsoTheManInTheAir) {
    SquareTable table = two_pieces();
    table.begin_drag(6, {});
    table.turn();
    EXPECT_EQ(table.code(57), 2);
    EXPECT_EQ(table.code(42), 8);
}

}  // namespace
}  // namespace velmora
