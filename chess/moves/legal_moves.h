#pragma once

#include <optional>

#include "chess/board/move.h"
#include "chess/moves/move_list.h"
#include "chess/moves/position.h"

namespace velmora {

/// All legal moves, in the generator's order, each with its check bit.
MoveList legal_moves(const ChessPosition& position);

/// The legal move that goes from the same square to the same square with the same code, with its check bit as
/// generated; nothing when the move is not legal. Moves from outside are made only when they are found here.
///
/// Engines, books, files and the mouse name a move by squares and know neither capture nor check; this is
/// the one gate through which such a move comes onto a board.
std::optional<Move> find_legal(const ChessPosition& position, Move move);

/// Whether the side to move has a legal move.
bool has_legal_move(const ChessPosition& position);

}  // namespace velmora
