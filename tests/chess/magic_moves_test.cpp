#include "chess/board/magic_moves.h"

#include <gtest/gtest.h>

#include "chess/board/bit_tables.h"

namespace velmora {
namespace {

/// Walks a line square by square, up to and including the first piece.
Bitboard walk(Square from, int files, int ranks, Bitboard occupied) {
    Bitboard result;
    int file = from.file() + files;
    int rank = from.rank() + ranks;
    for (; file >= 0 && file < 8 && rank >= 0 && rank < 8; file += files, rank += ranks) {
        const Square square(rank * 8 + file);
        result.set(square);
        if (occupied.contains(square)) break;
    }
    return result;
}

Bitboard rook_walk(Square from, Bitboard occupied) {
    return walk(from, 1, 0, occupied) | walk(from, -1, 0, occupied) | walk(from, 0, 1, occupied) |
           walk(from, 0, -1, occupied);
}

Bitboard bishop_walk(Square from, Bitboard occupied) {
    return walk(from, 1, 1, occupied) | walk(from, -1, 1, occupied) | walk(from, 1, -1, occupied) |
           walk(from, -1, -1, occupied);
}

// Every subset of a square's lines is an occupancy; the squares of the edge do not matter and are left out.
TEST(MagicMoves, LookUpEqualsTheWalk) {
    const Bitboard edge = rank_1 | rank_8 | file_a | file_h;
    for (Square square(0); square.on_board(); ++square) {
        const Bitboard diagonals = bit_tables.bishop_lines(square) & ~edge;
        const Bitboard straights = (bit_tables.rook_lines(square) & square.file_mask() & ~rank_1 & ~rank_8) |
                                   (bit_tables.rook_lines(square) & square.rank_mask() & ~file_a & ~file_h);
        Bitboard occupied;
        do {
            ASSERT_EQ(magic_moves().bishop_attacks(square, occupied), bishop_walk(square, occupied));
            occupied = Bitboard(occupied.value() - diagonals.value()) & diagonals;
        } while (occupied.any());
        do {
            ASSERT_EQ(magic_moves().rook_attacks(square, occupied), rook_walk(square, occupied));
            occupied = Bitboard(occupied.value() - straights.value()) & straights;
        } while (occupied.any());
        ASSERT_EQ(magic_moves().queen_attacks(square.bit(), edge),
                  rook_walk(square, edge) | bishop_walk(square, edge));
    }
}

TEST(MagicMoves, SelfTestNeedsTheFullTables) {
    EXPECT_TRUE(MagicMoves(MagicMoves::FullTables::keep).selftest_ok());
    ::testing::internal::CaptureStdout();
    EXPECT_FALSE(magic_moves().selftest_ok());
    EXPECT_EQ(::testing::internal::GetCapturedStdout().substr(0, 40),
              "square=0\nindex=0\nmagic_bishop_moves: 0\nb");
}

}  // namespace
}  // namespace velmora
