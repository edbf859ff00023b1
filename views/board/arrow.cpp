#include "views/board/arrow.h"

#include <cmath>

namespace velmora {

namespace {

// Written out to the digits that the angles of an arrow are known by.
constexpr double pi = 3.14159265;
constexpr double half_pi = 1.570796325;
/// A third of a full turn, between two corners of the head.
constexpr double third_turn = 2.0943951;

/// The centre of a row or column of cells. The step is one pixel more than a cell on purpose: the offset
/// grows towards the far side.
std::int32_t centre(int index, std::int32_t cell) { return cell / 2 + index * (cell + 1); }

}  // namespace

std::optional<Arrow> make_arrow(Square from, Square to, ArrowColor color, CellSize cell) {
    if (!from.on_board() || !to.on_board()) return std::nullopt;
    Arrow arrow;
    arrow.x1 = centre(from.file(), cell.width);
    arrow.y1 = centre(from.rank(), cell.height);
    arrow.x2 = centre(to.file(), cell.width);
    arrow.y2 = centre(to.rank(), cell.height);
    arrow.color = color;
    const double dx = arrow.x2 - arrow.x1, dy = arrow.y2 - arrow.y1;
    if (dx != 0) {
        const double slope = std::atan(dy / dx);
        arrow.angle = dx < 1 ? slope + half_pi : slope + pi + half_pi;
    } else {
        arrow.angle = from < to ? 0 : pi;
    }
    return arrow;
}

std::array<Corner, 3> arrow_head(const Arrow& arrow, CellSize cell) {
    const std::int32_t radius = cell.width / 3;
    const double x = arrow.x2, y = 8 * cell.height - arrow.y2;
    const double p = arrow.angle + half_pi, q = -half_pi - arrow.angle;
    std::array<Corner, 3> corners;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const double turn = double(i) * third_turn;
        corners[i] = {x + std::cos(p + turn) * radius, y + std::sin(q - turn) * radius};
    }
    return corners;
}

}  // namespace velmora
