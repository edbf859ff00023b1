#include "views/choice/choice_grid.h"

#include <algorithm>
#include <cmath>

namespace velmora {

std::optional<int> ChoiceGrid::index_at(double x, double y, CellSize cell) const {
    if (cell.width <= 0 || cell.height <= 0) return std::nullopt;
    const double column = std::floor(x / cell.width), row = std::floor(y / cell.height);
    if (!(column >= 0 && column < columns && row >= 0 && row < rows())) return std::nullopt;
    return int(column) + columns * int(row);
}

int ChoiceGrid::moved(int index, int columns_right, int rows_down) const {
    const int column = std::clamp(index % columns + columns_right, 0, columns - 1);
    const int row = std::clamp(index / columns + rows_down, 0, rows() - 1);
    return column + columns * row;
}

}  // namespace velmora
