#include "chess/moves/move_legality.h"

#include "chess/board/attack_maps.h"
#include "chess/board/bit_tables.h"

namespace velmora {

namespace {

/// Where a pawn may go, promotions left out, as far as the pieces on the board let it.
Bitboard pawn_targets(const BoardPosition& board, Square from, Side us) {
    const Bitboard free = ~board.occupied();
    const bool white = us == Side::white;
    const auto forward = [white](Bitboard squares) { return white ? squares << 8 : squares >> 8; };
    const Bitboard step = forward(from.bit()) & free;
    const Bitboard double_step = forward(step & (white ? rank_3 : rank_6)) & free;
    const Bitboard captures = bit_tables.pawn_attacks(from, us) & board.all(opposite(us));
    return (step | double_step | captures) & ~(white ? rank_8 : rank_1);
}

}  // namespace

bool is_legal_normal_move(const ChessPosition& position, Square from, Square to) {
    const BoardPosition& board = position.board();
    const Side us = position.side_to_move();
    const Side them = opposite(us);
    if (!from.on_board() || !to.on_board() || !board.all(us).contains(from)) return false;
    if ((board.all(us) | board.pieces(PieceKind::king, them)).contains(to)) return false;

    const Piece piece = board.piece_on(from);
    const Bitboard targets =
        piece.is_pawn() ? pawn_targets(board, from, us) : attacks_of(piece, from, board.occupied());
    if (!targets.contains(to)) return false;
    if (piece.is_king()) return attackers_to(board, to, them, board.occupied() & ~from.bit()).empty();

    const Square king = position.king(us);
    if (position.pinned().contains(from) && !bit_tables.ray_through(king, from).contains(to)) return false;
    const Bitboard checkers = position.checkers();
    if (checkers.empty()) return true;
    return !checkers.more_than_one() &&
           bit_tables.between_inclusive(king, checkers.first_square()).contains(to);
}

}  // namespace velmora
