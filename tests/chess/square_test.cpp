#include "chess/board/square.h"

#include <gtest/gtest.h>

#include "chess/board/bitboard.h"
#include "chess/board/piece.h"
#include "tests/support/thrown_text.h"

namespace velmora {
namespace {

using test::thrown_text;

TEST(Square, ReadsAndWritesItsName) {
    EXPECT_EQ(Square("e4"), Square(28));
    EXPECT_EQ(Square(), no_square);
    for (Square square(0); square.on_board(); ++square) EXPECT_EQ(Square(square.name()), square);
    EXPECT_EQ(Square(64).name(), "no_square");
    // The text is computed, not checked letter by letter.
    EXPECT_EQ(Square("i1").name(), "a2");

    EXPECT_EQ(thrown_text([] { Square("e"); }), "Square::Square(string)  size() error");
    EXPECT_EQ(thrown_text([] { Square("e44"); }), "Square::Square(string)  size() error");
    for (const char* text : {"i9", "a0", "\3441", "  "}) {
        EXPECT_EQ(thrown_text([text] { Square{text}; }), "Square::Square(string)  out of range") << text;
    }
    EXPECT_EQ(thrown_text([] { Square(65).name(); }), "Square::name()const m_square=65");
}

TEST(Piece, Table) {
    struct Row {
        std::uint32_t code;
        int value;
        const char* name;
    };
    for (const Row& row : {Row{0, 0, "no piece"},
                           {1, 100, "white pawn"},
                           {2, 300, "white knight"},
                           {3, 300, "white bishop"},
                           {4, 500, "white rook"},
                           {5, 900, "white queen"},
                           {6, 4000, "white king"},
                           {9, -100, "black pawn"},
                           {10, -300, "black knight"},
                           {11, -300, "black bishop"},
                           {12, -500, "black rook"},
                           {13, -900, "black queen"},
                           {14, -4000, "black king"}}) {
        EXPECT_EQ(Piece(row.code).value(), row.value);
        EXPECT_EQ(Piece(row.code).abs_value(), std::abs(row.value));
        EXPECT_EQ(Piece(row.code).name(), row.name);
        EXPECT_EQ(Piece(row.code).is_black(), row.code > 8);
    }
    EXPECT_TRUE(Piece(0).is_white());
    EXPECT_TRUE(Piece(13).is_queen() && Piece(13).is_black_queen() && !Piece(13).is_white_queen());
    Piece piece;
    piece.set_black_knight();
    EXPECT_EQ(piece, Piece(PieceKind::knight, Side::black));
}

TEST(Piece, CodesThatAreNone) {
    ::testing::internal::CaptureStdout();
    EXPECT_EQ(thrown_text([] { Piece(8).value(); }), "Piece::value out of range");
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "Piece: 8\n");
    EXPECT_EQ(thrown_text([] { Piece(15).abs_value(); }), "Piece::abs_value out of range:");
    EXPECT_EQ(thrown_text([] { Piece(7).name(); }), "Piece::unknown piece");
}

TEST(Bitboard, SetsOfSquares) {
    const Square c7("c7");
    EXPECT_EQ(c7.bit().value(), std::uint64_t{1} << 50);
    EXPECT_EQ(c7.file_mask() & c7.rank_mask(), c7.bit());
    EXPECT_EQ(c7.reverse_rank(), 1);
    EXPECT_TRUE(no_square.bit().empty());
    Bitboard squares = Square("b1").bit() | Square("h8").bit();
    EXPECT_EQ(squares.count(), 2);
    EXPECT_FALSE(squares.one_bit());
    EXPECT_EQ(squares.squares(), (std::vector<Square>{Square("b1"), Square("h8")}));
    EXPECT_EQ(squares.mirror_vertical(), Square("b8").bit() | Square("h1").bit());
    EXPECT_EQ(squares.mirror_horizontal(), Square("g1").bit() | Square("a8").bit());
    EXPECT_EQ(squares.pop_square(), Square("b1"));
    EXPECT_TRUE(squares.one_bit());
    EXPECT_EQ(squares.pop_bit(), Square("h8").bit());
    EXPECT_TRUE(squares.empty());
    EXPECT_EQ(squares.first_square(), no_square);
    EXPECT_EQ(squares.count(), 0);
    EXPECT_EQ(all_squares.count(), 64);
    EXPECT_EQ(file_a << 65, file_a << 1);  // counts are taken modulo 64
}

TEST(Bitboard, Text) {
    const std::string expected =
        "8000000000000005\n00000001\n00000000\n00000000\n00000000\n00000000\n00000000\n00000000\n10100000\n";
    const Bitboard squares(0x8000000000000005);
    EXPECT_EQ(squares.to_string(), expected);
    ::testing::internal::CaptureStdout();
    squares.print();
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "\n" + expected);
}

}  // namespace
}  // namespace velmora
