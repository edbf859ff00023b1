#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "chess/board/piece.h"
#include "chess/board/square.h"

namespace velmora {

/// What stands on the 64 squares, a1 first.
using Placement = std::array<Piece, 64>;

/// Reads the first field of a FEN character by character, from a8 to h1.
///
/// It judges nothing: a rank that is too long runs on into the squares above it, too many ranks lead below
/// a1, and what is no character of the field is left to the caller. So the board, its drawing, the lists of
/// positions and the keys of books, which differ in what they forgive, read by the same steps.
class PlacementReader {
public:
    /// What a character was: a piece, empty squares, the end of a rank, or nothing that belongs there.
    enum class Step { piece, gap, rank_end, fault };

    /// @param longest_gap  the highest digit that stands for empty squares
    explicit constexpr PlacementReader(std::string_view field, char longest_gap = '8')
        : m_field(field), m_longest_gap(longest_gap) {}

    constexpr bool at_end() const { return m_index == m_field.size(); }
    /// The index in the field of the character that read() takes next.
    constexpr std::size_t index() const { return m_index; }
    /// Where the next piece stands; beyond the board in a faulty field.
    constexpr Square square() const { return m_square; }
    /// The piece that was read last.
    constexpr Piece piece() const { return m_piece; }

    /// Takes one character. REQUIRES: !at_end().
    constexpr Step read() {
        const char character = m_field[m_index++];
        if (character == '/') {
            m_square -= 16;
            return Step::rank_end;
        }
        if (character >= '1' && character <= m_longest_gap) {
            m_square += character - '0';
            return Step::gap;
        }
        m_piece = piece_of_letter(character);
        if (m_piece.empty()) return Step::fault;
        ++m_square;
        return Step::piece;
    }

private:
    std::string_view m_field;
    char m_longest_gap;
    std::size_t m_index = 0;
    Square m_square{56};
    Piece m_piece;
};

/// Whether a field places eight ranks of eight squares each.
bool is_whole_placement(std::string_view field);

}  // namespace velmora
