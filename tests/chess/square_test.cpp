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
    EXPECT_EQ(Piece().name(), "no piece");
    EXPECT_EQ(Piece().value(), 0);
    EXPECT_TRUE(Piece().is_white());
    const std::pair<const char*, int> kinds[] = {{"pawn", 100}, {"knight", 300}, {"bishop", 300},
                                                 {"rook", 500}, {"queen", 900},  {"king", 4000}};
    std::uint32_t code = 0;
    for (const auto& [name, value] : kinds) {
        ++code;
        EXPECT_EQ(Piece(code).name(), std::string("white ") + name);
        EXPECT_EQ(Piece(code + 8).name(), std::string("black ") + name);
        EXPECT_EQ(Piece(code).value(), value);
        EXPECT_EQ(Piece(code + 8).value(), -value);
        EXPECT_EQ(Piece(code + 8).abs_value(), value);
    }
}

TEST(Piece, CodesThatAreNone) {
    ::testing::internal::CaptureStdout();
    EXPECT_EQ(thrown_text([] { Piece(8).value(); }), "Piece::value out of range");
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "Piece: 8\n");
    EXPECT_EQ(thrown_text([] { Piece(15).abs_value(); }), "Piece::abs_value out of range:");
    EXPECT_EQ(thrown_text([] { Piece(7).name(); }), "Piece::unknown piece");
}

TEST(Bitboard, Edges) {
    EXPECT_TRUE(no_square.bit().empty());
    EXPECT_EQ(Bitboard().first_square(), no_square);
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
