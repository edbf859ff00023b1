#pragma once

#include "chess/board/move.h"
#include "chess/moves/position.h"

namespace velmora {

/// Whether a piece of the side to move may go from square to square by a normal_move: an ordinary move or
/// capture, no promotion, castling or en passant. Tells the same as the generator, without a list.
/// REQUIRES: both kings are on the board.
///
/// Nearly every move of a file or an engine is of this kind, and a list of some forty moves would be made
/// to find one. The rarer kinds are left to the generator, so that their rules stand in one place.
bool is_legal_normal_move(const ChessPosition& position, Square from, Square to);

}  // namespace velmora
