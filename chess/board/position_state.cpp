#include "chess/board/position_state.h"

#include "chess/board/bit_tables.h"

namespace velmora {

Bitboard checkers(const BoardPosition& board, const PositionState& state, Side side) {
    const Square king = state.kings[side];
    if (!king.on_board()) return no_squares;
    const Side them = opposite(side);
    return (state.checking_sliders & board.all(them)) |
           (bit_tables.knight_moves(king) & board.pieces(PieceKind::knight, them)) |
           (bit_tables.pawn_attacks(king, side) & board.pieces(PieceKind::pawn, them)) |
           (bit_tables.king_moves(king) & board.pieces(PieceKind::king, them));
}

}  // namespace velmora
