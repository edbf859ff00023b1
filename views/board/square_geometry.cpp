#include "views/board/square_geometry.h"

#include <cmath>

namespace velmora {

std::optional<Square> square_at(double x, double y, CellSize cell) {
    if (cell.width <= 0 || cell.height <= 0) return std::nullopt;
    // Rounded downwards: a point half a pixel left of the board must not count as inside.
    const double column = std::floor(x / cell.width), row = std::floor(y / cell.height);
    if (!(column >= 0 && column < 8 && row >= 0 && row < 8)) return std::nullopt;
    return Square(int(column) + 8 * (7 - int(row)));
}

}  // namespace velmora
