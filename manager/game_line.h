#pragma once

#include <string_view>

#include "chess/moves/position.h"

namespace velmora {

/// The position of a line of the language that tells a game: a FEN, the word "moves", and the moves in
/// coordinates, the last two being left out at the start. Throws std::logic_error for a FEN that can't be
/// read and for an illegal move.
ChessPosition read_game_line(std::string_view line);

}  // namespace velmora
