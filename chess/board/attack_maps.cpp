#include "chess/board/attack_maps.h"

#include "chess/board/bit_tables.h"
#include "chess/board/magic_moves.h"

namespace velmora {

void AttackMaps::compute(const BoardPosition& board) {
    m_from.fill(no_squares);
    m_unions = {};
    for (Bitboard pieces = board.occupied(); pieces.any();) {
        const Square square = pieces.pop_square();
        const Piece piece = board.piece_on(square);
        const Bitboard attacks = attacks_of(piece, square, board.occupied());
        m_from[static_cast<std::size_t>(square.value())] = attacks;
        m_unions[piece.side()][static_cast<std::size_t>(piece.kind())] |= attacks;
    }
    for (const Side side : {Side::white, Side::black}) {
        m_unions[side][0] = no_squares;
        for (std::size_t kind = 1; kind < m_unions[side].size(); ++kind)
            m_unions[side][0] |= m_unions[side][kind];
    }
    m_complete = true;
}

Bitboard attacks_of(Piece piece, Square square, Bitboard occupied) {
    switch (piece.kind()) {
        case PieceKind::pawn:
            return bit_tables.pawn_attacks(square, piece.side());
        case PieceKind::knight:
            return bit_tables.knight_moves(square);
        case PieceKind::bishop:
            return magic_moves().bishop_attacks(square, occupied);
        case PieceKind::rook:
            return magic_moves().rook_attacks(square, occupied);
        case PieceKind::queen:
            return magic_moves().queen_attacks(square, occupied);
        case PieceKind::king:
            return bit_tables.king_moves(square);
        default:
            return no_squares;
    }
}

Bitboard attackers_to(const BoardPosition& board, Square square, Side by, Bitboard occupied) {
    if (!square.on_board()) return no_squares;
    const MagicMoves& magics = magic_moves();
    return (bit_tables.pawn_attacks(square, opposite(by)) & board.pieces(PieceKind::pawn, by)) |
           (bit_tables.knight_moves(square) & board.pieces(PieceKind::knight, by)) |
           (bit_tables.king_moves(square) & board.pieces(PieceKind::king, by)) |
           (magics.bishop_attacks(square, occupied) & board.diagonal_sliders(by)) |
           (magics.rook_attacks(square, occupied) & board.straight_sliders(by));
}

}  // namespace velmora
