#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "views/board/square_geometry.h"

namespace velmora {

/// What the 64 shown squares hold, and the piece in the air during a drag.
///
/// Knows nothing of pixels but the place of the piece in the air, which it keeps for the painter. Squares are
/// shown squares: 0 is the lower left corner of the screen.
class SquareTable {
public:
    /// 64 image codes, see image_code.h.
    using Codes = std::array<std::uint8_t, square_count>;

    SquareTable();

    /// Places pieces from 64 characters, a1 first: "?" leaves the square empty, PNBRQK and pnbrqk are the
    /// pieces. A piece in the air stays there when the new table holds it on the square it left, and is let
    /// go otherwise. Throws std::logic_error at any other character, or at another length; nothing is changed
    /// then.
    void set_pieces(std::string_view letters);
    /// One piece by its letter, with the same rule. Throws std::out_of_range beyond 63.
    void set_piece(char letter, int square);
    /// Leaves the square empty.
    void clear_square(int square);
    /// Leaves all squares empty.
    void clear();
    /// Turns the board by half: what stood on a1 stands on h8.
    void turn();

    /// Takes up the piece of a square; false, and nothing in the air, when the square is empty or no square.
    bool begin_drag(std::optional<int> square, Place home);
    /// Moves the piece in the air: the upper left corner of its image.
    void drag_to(Place place);
    /// Lets go over a square. The pair is where the piece came from and where it stands now; the square twice
    /// when nothing was in the air. Beside the board a piece returns to its own square, and without a piece
    /// there is nothing to report.
    std::optional<std::pair<int, int>> end_drag(std::optional<int> square);
    /// Puts a piece in the air back where it came from.
    void cancel_drag();

    const Codes& squares() const { return m_squares; }
    int background(int square) const { return m_background[std::size_t(square)]; }
    int code(int square) const { return m_squares[std::size_t(square)]; }

    bool dragging() const { return m_dragging; }
    int drag_piece() const { return m_drag_piece; }  ///< code of the piece in the air
    int drag_from() const { return m_drag_from; }    ///< the square it left
    Place drag_place() const { return m_drag_place; }

private:
    Codes m_background{};
    Codes m_squares{};
    bool m_dragging = false;
    int m_drag_piece = 0;
    int m_drag_from = 0;
    Place m_drag_place;
};

}  // namespace velmora
