#include "chess/board/check_test.h"

#include "chess/board/attack_maps.h"
#include "chess/board/bit_tables.h"
#include "chess/board/magic_moves.h"

namespace velmora {

namespace {

/// The mover's pieces that can attack a king, and the occupancy, as they stand after the move. Kings are
/// left out: one king never checks the other.
class PiecesAfter {
public:
    PiecesAfter(const BoardPosition& board, Move move)
        : m_side(board.side_to_move()),
          m_occupied(board.occupied()),
          m_straight(board.straight_sliders(m_side)),
          m_diagonal(board.diagonal_sliders(m_side)),
          m_knights(board.pieces(PieceKind::knight, m_side)),
          m_pawns(board.pieces(PieceKind::pawn, m_side)) {
        leave(move.from());
        if (move.code() == MoveCode::castling) {
            leave(move.to());
            const CastlingTargets targets = castling_targets(move.from(), move.to(), m_side);
            arrive(move.piece().kind(), targets.king);
            arrive(PieceKind::rook, targets.rook);
            return;
        }
        if (move.code() == MoveCode::en_passant) leave(behind(move.to(), m_side));
        arrive(is_promotion(move.code()) ? promoted_kind(move.code()) : move.piece().kind(), move.to());
    }

    bool attack(Square king) const {
        const Bitboard close = (bit_tables.knight_moves(king) & m_knights) |
                               (bit_tables.pawn_attacks(king, opposite(m_side)) & m_pawns);
        // Most often no slider is in line with the king.
        const Bitboard straight = bit_tables.rook_lines(king) & m_straight;
        const Bitboard diagonal = bit_tables.bishop_lines(king) & m_diagonal;
        return close.any() ||
               (straight.any() && (magic_moves().rook_attacks(king, m_occupied) & straight).any()) ||
               (diagonal.any() && (magic_moves().bishop_attacks(king, m_occupied) & diagonal).any());
    }

private:
    void leave(Square square) {
        const Bitboard others = ~square.bit();
        m_occupied &= others;
        m_straight &= others;
        m_diagonal &= others;
        m_knights &= others;
        m_pawns &= others;
    }

    void arrive(PieceKind kind, Square square) {
        const Bitboard bit = square.bit();
        m_occupied |= bit;
        if (kind == PieceKind::rook || kind == PieceKind::queen) m_straight |= bit;
        if (kind == PieceKind::bishop || kind == PieceKind::queen) m_diagonal |= bit;
        if (kind == PieceKind::knight) m_knights |= bit;
        if (kind == PieceKind::pawn) m_pawns |= bit;
    }

    Side m_side;
    Bitboard m_occupied;
    Bitboard m_straight;
    Bitboard m_diagonal;
    Bitboard m_knights;
    Bitboard m_pawns;
};

}  // namespace

bool gives_check(const BoardPosition& board, Move move) {
    const Bitboard king = board.pieces(PieceKind::king, opposite(board.side_to_move()));
    return PiecesAfter(board, move).attack(king.first_square());
}

bool is_legal_en_passant(const BoardPosition& board, Move move) {
    const Side us = board.side_to_move();
    const Bitboard captured = behind(move.to(), us).bit();
    const Bitboard occupied = (board.occupied() & ~move.from().bit() & ~captured) | move.to().bit();
    const Square king = board.pieces(PieceKind::king, us).first_square();
    return (attackers_to(board, king, opposite(us), occupied) & ~captured).empty();
}

}  // namespace velmora
