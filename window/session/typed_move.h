#pragma once

#include <optional>
#include <string_view>

#include "chess/board/move.h"
#include "chess/moves/position.h"

namespace velmora {

/// The legal move that a person has typed: squares ("e2e4", "e7e8q", "e1g1") or algebraic ("Nf3", "exd5",
/// "e8=Q", "O-O", "0-0"); the letter of a piece may be a small one where no pawn's move reads so.
std::optional<Move> read_typed_move(const ChessPosition& position, std::string_view text);

/// Whether a move can begin with this character.
bool begins_move(char32_t character);

}  // namespace velmora
