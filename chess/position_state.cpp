#include "chess/position_state.h"

#include "chess/bit_tables.h"

namespace velmora {

namespace {

/// Of two boards the one that the condition picks, without a branch.
Bitboard only_if(bool condition, Bitboard board) { return Bitboard(condition ? board.value() : 0); }

/// Adds what stands around one king.
template <Side us>
void find_around_king(const BoardPosition& board, PositionState& state) {
    constexpr Side them = opposite(us);
    const Square king = board.pieces(PieceKind::king, us).first_square();
    state.kings[us] = king;
    if (!king.on_board()) return;

    state.checkers |= (bit_tables.knight_moves(king) & board.pieces(PieceKind::knight, them)) |
                      (bit_tables.pawn_attacks(king, us) & board.pieces(PieceKind::pawn, them)) |
                      (bit_tables.king_moves(king) & board.pieces(PieceKind::king, them));

    Bitboard snipers = (bit_tables.bishop_lines(king) & board.diagonal_sliders(them)) |
                       (bit_tables.rook_lines(king) & board.straight_sliders(them));
    while (snipers.any()) {
        const Bitboard sniper_bit = Bitboard(snipers.value() & (0 - snipers.value()));
        const Square sniper = snipers.pop_square();
        const Bitboard blockers = bit_tables.between(sniper, king) & board.occupied();
        const Bitboard single = only_if(!blockers.more_than_one(), blockers);
        state.pinned |= single & board.all(us);
        state.discovering |= single & board.all(them);
        state.checkers |= only_if(blockers.empty(), sniper_bit);
    }
}

}  // namespace

void find_pins(const BoardPosition& board, PositionState& state) {
    state.pinned = state.discovering = state.checkers = no_squares;
    find_around_king<Side::black>(board, state);
    find_around_king<Side::white>(board, state);
}

}  // namespace velmora
