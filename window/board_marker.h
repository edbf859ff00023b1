#pragma once

#include <optional>

#include "chess/board/move.h"
#include "chess/moves/position.h"
#include "views/board/board_marks.h"

namespace velmora {

/// What the board marks: the last move, the selected piece with its legal targets, a king in check.
/// @param last_move  the empty move for none
/// @param selected   the square of a piece of the side to move
/// The one place at which the rules meet the picture: the board shows squares, and who computes them needs
/// no widget.
BoardMarks board_marks(const ChessPosition& position, const Move& last_move, std::optional<Square> selected);

}  // namespace velmora
