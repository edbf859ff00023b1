#pragma once

#include <array>
#include <cstddef>

#include "chess/board/bitboard.h"
#include "chess/board/side.h"
#include "chess/board/square.h"

namespace velmora {

/// The fixed geometry of the board. The origin square is left out of each set unless said otherwise.
///
/// All members take squares on the board.
///
/// Computed by the compiler from eight steps, so that no table has to be believed and none is made at the
/// start of the program. The two tables by pairs of squares, 32 KiB each, replace walks along lines in the
/// tests for pins and checks.
class BitTables {
public:
    /// Directions of rays(), in this order: east, north-east, north, north-west, west, south-west, south,
    /// south-east.
    static constexpr int directions = 8;

    constexpr BitTables();

    /// From the square to the edge.
    Bitboard rays(int direction, Square square) const { return m_rays[index(direction)][index(square)]; }

    Bitboard rook_lines(Square square) const { return m_rook_lines[index(square)]; }
    Bitboard bishop_lines(Square square) const { return m_bishop_lines[index(square)]; }
    Bitboard queen_lines(Square square) const { return rook_lines(square) | bishop_lines(square); }

    /// The 3 by 3 block around the square, origin included, clipped at the edges.
    Bitboard block(Square square) const { return king_moves(square) | square.bit(); }

    /// The ray that leaves a in the direction of b; empty when they share no line or are the same.
    ///
    /// This is the pin test: a piece on b that is pinned against a king on a may go exactly to the squares
    /// of this ray that it can reach.
    Bitboard ray_through(Square a, Square b) const { return m_ray_through[index(a)][index(b)]; }

    /// The squares strictly between a and b on their common line; empty when there is none.
    ///
    /// With b it is the answer to a check: whoever isn't the king captures on b or steps in between.
    Bitboard between(Square a, Square b) const { return m_between[index(a)][index(b)]; }

    /// between() and both a and b, also for squares that share no line.
    Bitboard between_inclusive(Square a, Square b) const { return between(a, b) | a.bit() | b.bit(); }

    Bitboard knight_moves(Square square) const { return m_knight_moves[index(square)]; }
    Bitboard king_moves(Square square) const { return m_king_moves[index(square)]; }
    /// Of a pawn of the side on the square. Looked up with the other side, the squares from which such a
    /// pawn would attack this one.
    Bitboard pawn_attacks(Square square, Side side) const { return m_pawn_attacks[side][index(square)]; }

private:
    using BySquare = std::array<Bitboard, 64>;

    static constexpr std::size_t index(Square square) { return static_cast<std::size_t>(square.value()); }
    static constexpr std::size_t index(int direction) { return static_cast<std::size_t>(direction); }

    constexpr void set_steps(Square square);
    constexpr void set_rays(Square square);

    std::array<BySquare, directions> m_rays{};
    BySquare m_rook_lines{};
    BySquare m_bishop_lines{};
    std::array<BySquare, 64> m_ray_through{};
    std::array<BySquare, 64> m_between{};
    BySquare m_knight_moves{};
    BySquare m_king_moves{};
    BySide<BySquare> m_pawn_attacks{};
};

/// The one instance, made by the compiler.
extern const BitTables bit_tables;

}  // namespace velmora
