#pragma once

#include "chess/board/move.h"

namespace velmora {

/// Puts moves in the order of the worth of what they capture, highest first, promotions without capture last;
/// equals stay in the order in which they come. REQUIRES: at most MoveList::capacity moves.
///
/// Stable, because the order of moves is part of what the generator promises, down to printed lists.
void sort_captures(Move* first, Move* last);

}  // namespace velmora
