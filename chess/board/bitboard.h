#pragma once

#include <bit>
#include <compare>
#include <cstdint>
#include <string>
#include <vector>

#include "chess/board/square.h"

namespace velmora {

/// A set of squares: bit n stands for square n, so the low byte is rank 1 and bit 0 is a1.
///
/// A type of its own instead of a plain integer: a square, a count and a set would all be integers to the
/// compiler, and mixing them up would go unnoticed. Everything is constexpr, so that tables of sets can be
/// made by the compiler, and an object is passed by value in a register.
///
/// Popping yields squares in ascending order. That order reaches the outside: it decides the order of
/// generated moves, and with it every list that is shown or printed.
class Bitboard {
public:
    constexpr Bitboard() = default;
    constexpr explicit Bitboard(std::uint64_t bits) : m_bits(bits) {}

    constexpr std::uint64_t value() const { return m_bits; }

    constexpr void set(Square square) { *this |= square.bit(); }
    constexpr void clear(Square square) { *this &= ~square.bit(); }
    constexpr bool contains(Square square) const { return (*this & square.bit()).any(); }

    constexpr bool empty() const { return m_bits == 0; }
    constexpr bool any() const { return m_bits != 0; }
    constexpr bool one_bit() const { return any() && !more_than_one(); }
    constexpr bool more_than_one() const { return (m_bits & (m_bits - 1)) != 0; }

    /// The number of squares, by parallel addition: the baseline instruction set has no population count.
    constexpr std::int32_t count() const {
        std::uint64_t n = m_bits - ((m_bits >> 1) & 0x5555555555555555);
        n = (n & 0x3333333333333333) + ((n >> 2) & 0x3333333333333333);
        n = (n + (n >> 4)) & 0x0F0F0F0F0F0F0F0F;
        return static_cast<std::int32_t>((n * 0x0101010101010101) >> 56);
    }

    /// The lowest square, `no_square` when there is none.
    ///
    /// That countr_zero() gives 64 for zero, which is `no_square`, spares every caller a case of its own.
    constexpr Square first_square() const { return Square(std::countr_zero(m_bits)); }

    /// Removes and returns the lowest square; `no_square` from the empty set.
    constexpr Square pop_square() {
        const Square square = first_square();
        m_bits &= m_bits - 1;
        return square;
    }

    /// Removes and returns the lowest square as a set of its own.
    constexpr Bitboard pop_bit() {
        const Bitboard bit(m_bits & (0 - m_bits));
        m_bits &= m_bits - 1;
        return bit;
    }

    /// All squares, ascending.
    std::vector<Square> squares() const;

    /// A rank is a byte, so turning the board upside down is reversing the bytes; mirror_horizontal()
    /// reverses the bits of each byte by swapping neighbours, pairs and halves.
    constexpr Bitboard mirror_vertical() const { return Bitboard(__builtin_bswap64(m_bits)); }
    constexpr Bitboard mirror_horizontal() const {
        std::uint64_t b = m_bits;
        b = ((b >> 1) & 0x5555555555555555) | ((b & 0x5555555555555555) << 1);
        b = ((b >> 2) & 0x3333333333333333) | ((b & 0x3333333333333333) << 2);
        b = ((b >> 4) & 0x0F0F0F0F0F0F0F0F) | ((b & 0x0F0F0F0F0F0F0F0F) << 4);
        return Bitboard(b);
    }

    /// Sixteen hexadecimal digits and a line end, then eight lines of "0" and "1", rank 8 first.
    std::string to_string() const;

    /// Writes a line end and to_string() to standard output.
    void print() const;

    constexpr Bitboard& operator&=(Bitboard other) {
        m_bits &= other.m_bits;
        return *this;
    }
    constexpr Bitboard& operator|=(Bitboard other) {
        m_bits |= other.m_bits;
        return *this;
    }
    constexpr Bitboard& operator^=(Bitboard other) {
        m_bits ^= other.m_bits;
        return *this;
    }
    /// Shift counts are taken modulo 64.
    constexpr Bitboard& operator<<=(std::int32_t count) {
        m_bits <<= count & 63;
        return *this;
    }
    constexpr Bitboard& operator>>=(std::int32_t count) {
        m_bits >>= count & 63;
        return *this;
    }

    constexpr Bitboard operator~() const { return Bitboard(~m_bits); }
    friend constexpr Bitboard operator&(Bitboard a, Bitboard b) { return a &= b; }
    friend constexpr Bitboard operator|(Bitboard a, Bitboard b) { return a |= b; }
    friend constexpr Bitboard operator^(Bitboard a, Bitboard b) { return a ^= b; }
    friend constexpr Bitboard operator<<(Bitboard a, std::int32_t count) { return a <<= count; }
    friend constexpr Bitboard operator>>(Bitboard a, std::int32_t count) { return a >>= count; }
    // NOLINTNEXTLINE(modernize-use-nullptr): the check misreads a defaulted comparison
    friend constexpr auto operator<=>(Bitboard, Bitboard) = default;

private:
    std::uint64_t m_bits = 0;
};

static_assert(sizeof(Bitboard) == 8);

// Here and not in square.h, which a set of squares is built upon. Off the board the truth value 0 is
// shifted: an empty set without a branch.
constexpr Bitboard Square::bit() const {
    return Bitboard(static_cast<std::uint64_t>(on_board()) << (m_square & 63));
}
constexpr Bitboard Square::file_mask() const { return Bitboard(0x0101010101010101) << file(); }
constexpr Bitboard Square::rank_mask() const { return Bitboard(255) << (8 * rank()); }

inline constexpr Bitboard no_squares{};
inline constexpr Bitboard all_squares = ~no_squares;

inline constexpr Bitboard file_a = Square(0).file_mask();
inline constexpr Bitboard file_h = Square(7).file_mask();
inline constexpr Bitboard rank_1 = Square(0).rank_mask();
inline constexpr Bitboard rank_2 = Square(8).rank_mask();
inline constexpr Bitboard rank_3 = Square(16).rank_mask();
inline constexpr Bitboard rank_6 = Square(40).rank_mask();
inline constexpr Bitboard rank_7 = Square(48).rank_mask();
inline constexpr Bitboard rank_8 = Square(56).rank_mask();
inline constexpr Bitboard not_file_a = ~file_a;
inline constexpr Bitboard not_file_h = ~file_h;

/// The light and the dark squares; a1 is dark.
inline constexpr Bitboard light_squares{0x55AA55AA55AA55AA};
inline constexpr Bitboard dark_squares = ~light_squares;

/// What the pawns of a colour attack, all at once.
template <Side us>
constexpr Bitboard pawn_attacks(Bitboard pawns) {
    if constexpr (us == Side::white) return ((pawns & not_file_a) << 7) | ((pawns & not_file_h) << 9);
    return ((pawns & not_file_a) >> 9) | ((pawns & not_file_h) >> 7);
}
constexpr Bitboard pawn_attacks(Bitboard pawns, Side us) {
    return us == Side::white ? pawn_attacks<Side::white>(pawns) : pawn_attacks<Side::black>(pawns);
}

/// What knights attack, all at once.
constexpr Bitboard knight_attacks(Bitboard knights) {
    const Bitboard east = (knights & not_file_h) << 1;
    const Bitboard west = (knights & not_file_a) >> 1;
    const Bitboard near = east | west;
    const Bitboard far = ((east & not_file_h) << 1) | ((west & not_file_a) >> 1);
    return (near << 16) | (near >> 16) | (far << 8) | (far >> 8);
}

}  // namespace velmora
