#pragma once

#include <string>

#include "chess/move.h"
#include "chess/position.h"
#include "chess/square.h"

namespace velmora {

/// The algebraic text of a move made in `position`; the rules are those of SanMove.
std::string write_san(const ChessPosition& position, const Move& move);

/// The test behind SanMove::is_legal().
bool counts_for_disambiguation(const ChessPosition& position, Square from, Square to);

}  // namespace velmora
