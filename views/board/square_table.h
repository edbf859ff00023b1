#pragma once

#include <cstddef>
#include <optional>
#include <utility>

#include "chess/board/placement.h"
#include "views/board/square_geometry.h"

namespace velmora {

/// What the 64 shown squares hold, and the piece in the air during a drag.
///
/// Knows nothing of pixels but the place of the piece in the air, which it keeps for the painter. Squares are
/// shown squares: 0 is the lower left corner of the screen.
///
/// A piece in the air stands on no square: the square it left is empty, so that the painter needs no
/// exception for it. That is also why every way out of a drag must put it down somewhere.
class SquareTable {
public:
    /// Places pieces. A piece in the air stays there when the new table holds it on the square it left, and
    /// is let go otherwise.
    /// An engine's move may come while the person holds a piece: what the move doesn't concern isn't taken
    /// from the hand.
    void set_pieces(const Placement& pieces);
    /// Throws std::out_of_range for no square of the board.
    void set_piece(Piece piece, Square square) { m_pieces.at(std::size_t(square.value())) = piece; }
    void clear_square(Square square) { set_piece(no_piece, square); }
    /// Leaves all squares empty.
    void clear();
    /// Turns the board by half: what stood on a1 stands on h8.
    void turn();

    /// Takes up the piece of a square; false, and nothing in the air, when the square is empty or no square.
    bool begin_drag(std::optional<Square> square, Place home);
    /// Moves the piece in the air: the upper left corner of its image.
    void drag_to(Place place);
    /// Lets go over a square. The pair is where the piece came from and where it stands now; the square twice
    /// when nothing was in the air. Beside the board a piece returns to its own square, and without a piece
    /// there is nothing to report.
    std::optional<std::pair<Square, Square>> end_drag(std::optional<Square> square);
    /// Puts a piece in the air back where it came from.
    void cancel_drag();

    const Placement& pieces() const { return m_pieces; }
    /// REQUIRES: a square of the board.
    Piece piece_on(Square square) const { return m_pieces[std::size_t(square.value())]; }

    bool dragging() const { return m_dragging; }
    Piece drag_piece() const { return m_drag_piece; }  ///< the piece in the air
    Square drag_from() const { return m_drag_from; }   ///< the square it left
    Place drag_place() const { return m_drag_place; }

private:
    Placement m_pieces;
    bool m_dragging = false;
    Piece m_drag_piece;
    Square m_drag_from;
    Place m_drag_place;
};

}  // namespace velmora
