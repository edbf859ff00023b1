#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

#include "chess/board/side.h"

namespace velmora {

class Bitboard;

/// A square number: a1 is 0, b1 is 1, h1 is 7, a2 is 8, h8 is 63. 64 is `no_square`, the default.
///
/// Arithmetic is that of integers and checks no range.
///
/// That arithmetic is free is what the steps of pieces need ("+ 8" is one rank up); on_board() is asked
/// where a result may have left the board. Left and right it wraps around to the next rank, which no range
/// test notices: such steps belong to BitTables.
class Square {
public:
    constexpr Square() = default;
    constexpr explicit Square(std::int32_t value) : m_square(value) {}

    /// From a text such as "e4". Computes (text[0] - 'a') + (text[1] - '1') * 8 and looks at the result only.
    /// Throws std::logic_error when the text has not two characters or the result is not in 0..63.
    explicit Square(std::string_view text);

    constexpr std::int32_t value() const { return m_square; }

    /// Whether this is one of the 64 squares of the board.
    constexpr bool on_board() const { return static_cast<std::uint32_t>(m_square) < 64U; }

    /// "e4"; "no_square" for 64. Throws std::logic_error beyond.
    std::string name() const;

    constexpr char file_char() const { return static_cast<char>('a' + file()); }
    constexpr char rank_char() const { return static_cast<char>('1' + rank()); }
    constexpr std::int32_t file() const { return m_square % 8; }
    constexpr std::int32_t rank() const { return m_square / 8; }
    constexpr std::int32_t reverse_rank() const { return 7 - rank(); }
    constexpr Bitboard file_mask() const;
    constexpr Bitboard rank_mask() const;

    /// The one-bit board of the square; empty for anything off the board.
    constexpr Bitboard bit() const;

    constexpr Square mirror_vertical() const { return Square(m_square ^ 56); }
    constexpr Square mirror_horizontal() const { return Square(rank() * 8 + 7 - file()); }

    constexpr Square& operator+=(std::int32_t steps) {
        m_square += steps;
        return *this;
    }
    constexpr Square& operator-=(std::int32_t steps) {
        m_square -= steps;
        return *this;
    }
    constexpr Square& operator++() { return *this += 1; }
    constexpr Square& operator--() { return *this -= 1; }
    constexpr Square operator++(int) {
        const Square old = *this;
        ++*this;
        return old;
    }
    constexpr Square operator--(int) {
        const Square old = *this;
        --*this;
        return old;
    }

    friend constexpr Square operator+(Square square, std::int32_t steps) { return square += steps; }
    friend constexpr Square operator-(Square square, std::int32_t steps) { return square -= steps; }
    friend constexpr std::int32_t operator-(Square a, Square b) { return a.m_square - b.m_square; }
    // NOLINTNEXTLINE(modernize-use-nullptr): the check misreads a defaulted comparison
    friend constexpr auto operator<=>(Square, Square) = default;

private:
    std::int32_t m_square = 64;
};

static_assert(sizeof(Square) == 4);

inline constexpr Square no_square{};

/// One rank towards the side that moves: where the pawn stands that an en passant move to `square` captures.
constexpr Square behind(Square square, Side mover) { return square + (mover == Side::white ? -8 : 8); }

}  // namespace velmora

#include "chess/board/bitboard.h"  // defines bit() and the masks
