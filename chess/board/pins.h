#pragma once

#include "chess/board/bit_tables.h"
#include "chess/board/board_position.h"
#include "chess/board/position_state.h"

namespace velmora {

// Always compiled into the caller: only then is the record of a new ply put together in registers and written
// once.

/// Pieces that alone stand between a slider of `them` and the king of the other colour, whatever their
/// colour. Sliders with nothing between are added to `checking`.
///
/// Looked at from the king: only sliders that share a line with it count, which are few, and of each the
/// squares between tell all. One walk gives pins of one side, discovered checks of the other, and checks,
/// which all ask "how many stand between": none, one, or more.
template <Side them>
[[gnu::always_inline]] inline Bitboard lone_blockers(const BoardPosition& board, Square king,
                                                     Bitboard& checking) {
    Bitboard lone;
    if (!king.on_board()) return lone;
    const Bitboard occupied = board.occupied();
    Bitboard snipers = (bit_tables.bishop_lines(king) & board.diagonal_sliders(them)) |
                       (bit_tables.rook_lines(king) & board.straight_sliders(them));
    while (snipers.any()) {
        const Square sniper = snipers.pop_square();
        const Bitboard blockers = bit_tables.between(king, sniper) & occupied;
        lone |= Bitboard(blockers.more_than_one() ? 0 : blockers.value());
        if (blockers.empty()) checking.set(sniper);
    }
    return lone;
}

/// Sets kings, pinned, discovering and checking_sliders from the board.
///
/// Done once a position rather than for each move: every later question of legality is then a look at a
/// set.
[[gnu::always_inline]] inline void find_pins(const BoardPosition& board, PositionState& state) {
    const Square white_king = board.white_king().first_square();
    const Square black_king = board.black_king().first_square();
    Bitboard checking;
    const Bitboard around_white = lone_blockers<Side::black>(board, white_king, checking);
    const Bitboard around_black = lone_blockers<Side::white>(board, black_king, checking);
    state.kings = {white_king, black_king};
    state.pinned = (around_white & board.white_all()) | (around_black & board.black_all());
    state.discovering = (around_white & board.black_all()) | (around_black & board.white_all());
    state.checking_sliders = checking;
}

}  // namespace velmora
