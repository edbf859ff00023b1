#include "chess/position_state.h"

#include "chess/bit_tables.h"

namespace velmora {

namespace {

/// Of two boards the one that the condition picks, without a branch.
Bitboard only_if(bool condition, Bitboard board) { return Bitboard(condition ? board.value() : 0); }

/// What stands on the lines of the kings, gathered in registers.
struct Lines {
    Bitboard pinned;
    Bitboard discovering;
    Bitboard checking_sliders;
};

template <Side us>
void add_lines(const BoardPosition& board, Square king, Lines& lines) {
    constexpr Side them = opposite(us);
    if (!king.on_board()) return;
    const Bitboard occupied = board.occupied();
    Bitboard snipers = (bit_tables.bishop_lines(king) & board.diagonal_sliders(them)) |
                       (bit_tables.rook_lines(king) & board.straight_sliders(them));
    while (snipers.any()) {
        const Square sniper = snipers.pop_square();
        const Bitboard blockers = bit_tables.between(king, sniper) & occupied;
        const Bitboard single = only_if(!blockers.more_than_one(), blockers);
        lines.pinned |= single & board.all(us);
        lines.discovering |= single & board.all(them);
        lines.checking_sliders |= only_if(blockers.empty(), sniper.bit());
    }
}

}  // namespace

void find_pins(const BoardPosition& board, PositionState& state) {
    Lines lines;
    const Square white = board.white_king().first_square();
    const Square black = board.black_king().first_square();
    add_lines<Side::black>(board, black, lines);
    add_lines<Side::white>(board, white, lines);
    state.kings = {white, black};
    state.pinned = lines.pinned;
    state.discovering = lines.discovering;
    state.checking_sliders = lines.checking_sliders;
}

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
