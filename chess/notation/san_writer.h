#pragma once

#include <string>

#include "chess/board/move.h"
#include "chess/board/square.h"
#include "chess/moves/position.h"

namespace velmora {

/// The algebraic text of a move made in `position`; the rules are those of SanMove.
///
/// A checking move is made on a copy to tell check from mate, which costs far more than the rest; all
/// other moves only read.
std::string write_san(const ChessPosition& position, const Move& move);

/// The test behind SanMove::is_legal().
bool counts_for_disambiguation(const ChessPosition& position, Square from, Square to);

}  // namespace velmora
