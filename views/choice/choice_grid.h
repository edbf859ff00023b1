#pragma once

#include <optional>
#include <vector>

#include "views/board/square_geometry.h"

namespace velmora {

/// The arithmetic of a chooser: codes in a grid of cells, without a widget.
///
/// REQUIRES: full rows. That way rows and cells follow from the number of codes.
struct ChoiceGrid {
    int columns = 1;
    std::vector<int> codes;  ///< row by row

    int rows() const { return int(codes.size()) / columns; }
    /// The size of a cell when the grid fills a widget.
    CellSize cell(int width, int height) const { return {width / columns, height / rows()}; }
    /// The index into `codes` of the cell under a point; nothing beside the grid.
    std::optional<int> index_at(double x, double y, CellSize cell) const;
    /// The index that lies some columns and rows from another, as far as the grid goes.
    int moved(int index, int columns_right, int rows_down) const;
};

/// For setting up a position: White's pawn to king, then Black's, by their image codes.
inline const ChoiceGrid piece_choice_grid{3, {1, 2, 3, 4, 5, 6, 8, 9, 10, 11, 12, 13}};

/// For a promotion: queen, rook, bishop, knight.
inline const ChoiceGrid promo_choice_grid{2, {4, 5, 6, 7}};

}  // namespace velmora
