#pragma once

#include "chess/board/board_position.h"
#include "chess/board/move.h"

namespace velmora {

/// Whether a move of the side to move leaves the enemy king attacked, found from the pieces as they stand
/// after it.
///
/// For the moves that change more than one square (promotion, castling, en passant); the others are told by
/// sets. REQUIRES: the enemy king is on the board.
bool gives_check(const BoardPosition& board, Move move);

/// Whether an en passant move of the side to move leaves its own king unattacked.
/// REQUIRES: the own king is on the board.
///
/// The sets of pinned pieces cannot tell this: two pawns leave the rank at once, and neither alone was
/// pinned. So the king is looked at with both gone and the capturing pawn on its new square.
bool is_legal_en_passant(const BoardPosition& board, Move move);

}  // namespace velmora
