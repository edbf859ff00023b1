#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "chess/board/arrow_color.h"
#include "views/board/square_geometry.h"

namespace velmora {

/// An arrow on the board as it is painted: in pixels from the lower left corner of the board, upwards, for
/// the size of the cells at the time it was set.
///
/// Upwards like the ranks, so that the direction of a move needs no change of sign; the painter, who counts
/// from the top, turns it. The numbers are fixed when the arrow is made, because arrows last for a move and
/// a window is seldom resized in between.
struct Arrow {
    std::int32_t x1 = 0, y1 = 0;  ///< tail
    std::int32_t x2 = 0, y2 = 0;  ///< head
    ArrowColor color = ArrowColor::red;
    double angle = 0;  ///< of the head, radians: 0 points up the board
};

/// The arrow between the centres of two shown squares; nothing when one is no square.
std::optional<Arrow> make_arrow(Square from, Square to, ArrowColor color, CellSize cell);

/// A move that an engine would play, shown as an arrow. Squares of the position.
///
/// Other than an Arrow it is kept by its squares: while an engine analyses, the board is turned and resized
/// at will, and the arrow must follow.
struct MoveHint {
    Square from, to;
    double strength = 1;  ///< 1 for the best move, less for the next ones, which are painted paler

    bool operator==(const MoveHint&) const = default;
};

/// A point in pixels from the upper left corner of the board.
struct Corner {
    double x = 0;
    double y = 0;
};

/// The three corners of an arrow's head on a board of such cells.
std::array<Corner, 3> arrow_head(const Arrow& arrow, CellSize cell);

}  // namespace velmora
