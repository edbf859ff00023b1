#pragma once

#include <vector>

#include <cairomm/context.h>

#include "views/board/arrow.h"
#include "views/board/board_images.h"
#include "views/board/board_marks.h"
#include "views/board/square_table.h"

namespace velmora {

/// A move of an engine on its way to the painter.
struct HintArrow {
    Arrow arrow;
    double strength = 1;  ///< 1 is painted like any arrow, less is paler and thinner
};

/// All that a picture of the board is made from. Squares and marks are those of the screen.
///
/// References to what the drawing keeps, for the length of one paint. The painter has no state of its own,
/// so a picture can be painted onto any surface, without a widget.
struct BoardPicture {
    const SquareTable& table;
    const BoardMarks& marks;
    const std::vector<Arrow>& arrows;
    const std::vector<HintArrow>& hints;
    const BoardImages& images;
    CellSize cell;  ///< logical pixels; images of another size are scaled
};

/// Paints cells and pieces, marks, the piece in the air, hints and arrows, in this order, as far as the clip
/// asks for them. REQUIRES: the images have been rendered.
void paint_board(const Cairo::RefPtr<Cairo::Context>& cr, const BoardPicture& picture);

}  // namespace velmora
