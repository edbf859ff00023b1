#pragma once

#include <string_view>

#include "chess/board/move.h"
#include "chess/moves/position.h"

namespace velmora {

/// The move of an algebraic text in `position`; the rules are those of SanMove.
Move read_san(const ChessPosition& position, std::string_view text);

}  // namespace velmora
