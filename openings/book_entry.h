#pragma once

#include <cstdint>
#include <string>

#include "chess/board/square.h"

namespace velmora {

/// A move in the layout of a Polyglot book: bits 0-5 the destination, 6-11 the origin (a1 is 0, h8 is 63),
/// 12-14 the promotion: 0 none, 1 knight, 2 bishop, 3 rook, 4 queen. Castling stands as the king takes its
/// own rook, "e1h1". The format is the published one of Polyglot .bin files.
///
/// A type of its own beside Move: the promotion codes differ, and a book's move knows neither piece nor
/// capture. Through its text it becomes a move of a position, where it is also found out to be illegal:
/// keys of two positions may be equal by chance.
class BookMove {
public:
    constexpr BookMove() = default;
    constexpr explicit BookMove(std::uint16_t value) : m_value(value) {}

    constexpr std::uint16_t value() const { return m_value; }
    constexpr bool empty() const { return m_value == 0; }

    constexpr Square to() const { return Square(field(0, square_mask)); }
    constexpr Square from() const { return Square(field(from_shift, square_mask)); }
    constexpr int promotion() const { return field(promotion_shift, promotion_mask); }

    constexpr void set_to(Square square) { set_field(0, square_mask, square.value()); }
    constexpr void set_from(Square square) { set_field(from_shift, square_mask, square.value()); }
    constexpr void set_promotion(int piece) { set_field(promotion_shift, promotion_mask, piece); }

    constexpr bool operator==(const BookMove&) const = default;

    /// Coordinates, "e2e4" or "e7e8q"; a promotion that no piece has adds nothing.
    std::string to_string() const;

private:
    static constexpr int from_shift = 6;
    static constexpr int promotion_shift = 12;
    static constexpr int square_mask = 63;
    static constexpr int promotion_mask = 7;

    constexpr int field(int shift, int mask) const { return (m_value >> shift) & mask; }
    constexpr void set_field(int shift, int mask, int value) {
        m_value = static_cast<std::uint16_t>((m_value & ~(mask << shift)) | ((value & mask) << shift));
    }

    std::uint16_t m_value = 0;
};

/// One record of a book, in host order. The program uses neither weight nor learn.
struct BookEntry {
    std::uint64_t key = 0;
    BookMove move;
    std::uint16_t weight = 0;
    std::uint32_t learn = 0;

    bool operator==(const BookEntry&) const = default;
};

}  // namespace velmora
