#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "views/square_geometry.h"

namespace velmora {

/// What the 64 shown squares hold, and the man in the air during a drag.
///
/// Knows nothing of pixels but the place of the man in the air, which it keeps for the painter. Squares are
/// shown squares: 0 is the lower left corner of the screen.
class SquareTable {
public:
    /// 64 image codes, see image_code.h.
    using Codes = std::array<std::uint8_t, square_count>;

    SquareTable();

    /// Places men from 64 characters, a1 first: "?" leaves the square empty, PNBRQK and pnbrqk are the men.
    /// A man in the air stays there when the new table holds him on the square he left, and is let go
    /// otherwise. Throws std::logic_error at any other character, or at another length; nothing is changed
    /// then.
    void set_pieces(std::string_view letters);
    /// One man by his letter, with the same rule. Throws std::out_of_range beyond 63.
    void set_piece(char letter, int square);
    /// Leaves the square empty.
    void clear_square(int square);
    /// Leaves all squares empty.
    void clear();
    /// Turns the board by half: what stood on a1 stands on h8.
    void turn();

    /// Takes up the man of a square; false, and nothing in the air, when the square is empty or no square.
    bool begin_drag(std::optional<int> square, Place home);
    /// Moves the man in the air: the upper left corner of his image.
    void drag_to(Place place);
    /// Lets go over a square. The pair is where the man came from and where he stands now; the square twice
    /// when nothing was in the air. Beside the board a man returns to his own square, and without a man there
    /// is nothing to report.
    std::optional<std::pair<int, int>> end_drag(std::optional<int> square);
    /// Puts a man in the air back where he came from.
    void cancel_drag();

    const Codes& squares() const { return m_squares; }
    int background(int square) const { return m_background[std::size_t(square)]; }
    int code(int square) const { return m_squares[std::size_t(square)]; }

    bool dragging() const { return m_dragging; }
    int drag_piece() const { return m_drag_piece; }  ///< code of the man in the air
    int drag_from() const { return m_drag_from; }    ///< the square he left
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
