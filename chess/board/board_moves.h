#pragma once

#include "chess/board/board_position.h"

namespace velmora {

// How moves change the board: the hottest code there is, in a header so that it is compiled into its callers.

/// Both pieces leave before either arrives: in Chess960 the king may end where the rook stood, the rook
/// where the king stood, and either may stay where it is.
template <Side us>
void BoardPosition::castle(Move move) {
    const CastlingTargets targets = castling_targets(move.from_field(), move.to_field(), us);
    const Piece rook(PieceKind::rook, us);
    take(move.from_field(), move.piece());
    take(move.to_field(), rook);
    put(targets.king, move.piece());
    put(targets.rook, rook);
}

template <Side us>
void BoardPosition::undo_castle(Move move) {
    const CastlingTargets targets = castling_targets(move.from_field(), move.to_field(), us);
    const Piece rook(PieceKind::rook, us);
    take(targets.king, move.piece());
    take(targets.rook, rook);
    put(move.from_field(), move.piece());
    put(move.to_field(), rook);
}

/// Normal moves, which nearly all are, come first; a null move only passes the turn and falls through them
/// all. The moving side is a template parameter, so that directions and back ranks are constants in each
/// of the two instances.
template <Side us>
[[gnu::always_inline]] inline void BoardPosition::do_move_of(Move move) {
    m_side = opposite(us);
    const Square from = move.from_field();
    const Square to = move.to_field();
    const Piece piece = move.piece();
    if (move.code() == MoveCode::normal_move) {
        // By exclusive or, which is its own inverse: whatever the move, undo restores the boards.
        const Bitboard step = from.bit() | to.bit();
        board_of(piece) ^= step;
        m_all[us] ^= step;
        m_board[index(from)] = no_piece;
        m_board[index(to)] = piece;
        if (const Piece capture = move.capture(); !capture.empty()) {
            board_of(capture) ^= to.bit();
            m_all[capture.side()] ^= to.bit();
        }
    } else if (is_promotion(move.code())) {
        take(to, move.capture());
        take(from, piece);
        put(to, Piece(promoted_kind(move.code()), us));
    } else if (move.code() == MoveCode::castling) {
        castle<us>(move);
    } else if (move.code() == MoveCode::en_passant) {
        take(behind(to, us), move.capture());
        take(from, piece);
        put(to, piece);
    }
}

/// All that is to be put back is in the move itself (the captured piece among it), so the board keeps no
/// history of its own.
template <Side us>
[[gnu::always_inline]] inline void BoardPosition::undo_move_of(Move move) {
    m_side = us;
    const Square from = move.from_field();
    const Square to = move.to_field();
    const Piece piece = move.piece();
    const Piece capture = move.capture();
    if (move.code() == MoveCode::normal_move) {
        const Bitboard step = from.bit() | to.bit();
        board_of(piece) ^= step;
        m_all[us] ^= step;
        m_board[index(from)] = piece;
        m_board[index(to)] = capture;
        if (!capture.empty()) {
            board_of(capture) ^= to.bit();
            m_all[capture.side()] ^= to.bit();
        }
    } else if (is_promotion(move.code())) {
        take(to, Piece(promoted_kind(move.code()), us));
        put(from, piece);
        put(to, capture);
    } else if (move.code() == MoveCode::castling) {
        undo_castle<us>(move);
    } else if (move.code() == MoveCode::en_passant) {
        take(to, piece);
        put(from, piece);
        put(behind(to, us), capture);
    }
}

}  // namespace velmora
