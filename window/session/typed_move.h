#pragma once

#include <optional>
#include <string_view>

#include "chess/board/move.h"
#include "chess/moves/position.h"

namespace velmora {

/// The legal move that a person has typed: squares ("e2e4", "e7e8q", "e1g1") or algebraic ("Nf3", "exd5",
/// "e8=Q", "O-O", "0-0"); the letter of a piece may be a small one where no pawn's move reads so.
/// The legal moves are compared with the text, instead of the text being read by a grammar: what people
/// write differs in its signs, and a text that fits no legal move is of no use however well it is formed. A
/// small "b" is the pawn of the b-file first, since that is how squares are written.
std::optional<Move> read_typed_move(const ChessPosition& position, std::string_view text);

/// Whether a move can begin with this character.
/// Decides whether a key on the board opens the field for a move or is left to others.
bool begins_move(char32_t character);

}  // namespace velmora
