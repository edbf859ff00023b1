#pragma once

#include <cstdint>

#include "chess/board/bitboard.h"
#include "chess/board/board_position.h"
#include "chess/board/move.h"
#include "chess/board/side.h"
#include "chess/board/square.h"

namespace velmora {

/// Rights that only Chess960 can have: rook files other than a and h.
inline constexpr std::uint16_t chess960_rights = 0x7E7E;

/// What a position knows beside the placement of the pieces; one record a ply. find_pins() in
/// chess/board/pins.h fills in the boards and the kings.
///
/// What a move destroys and taking it back cannot work out again (rights, counter, en passant square) must
/// be remembered; pins and kings are remembered with it because that is cheaper than finding them again.
struct PositionState {
    /// Pieces of either colour that alone stand between their own king and an enemy slider.
    Bitboard pinned;
    /// Pieces of either colour that alone stand between an own slider and the enemy king.
    Bitboard discovering;
    /// Sliders of either colour that attack the enemy king.
    Bitboard checking_sliders;
    /// Bit f: the white rook that started on file f may still castle; bit 8 + f: the black one. By file
    /// and not by wing, since in Chess960 a rook may start anywhere; the classic rights are bits 0, 7, 8
    /// and 15.
    std::uint16_t rights = 0;
    /// Plies since the last pawn move or capture.
    std::uint16_t halfmoves = 0;
    /// The move that led here; empty in the first record.
    Move last_move;
    /// En passant target, `no_square` when none. Behind a move it is set only where an enemy pawn stands
    /// beside the pawn that went two squares, which keeps positions with the same moves equal under the
    /// threefold rule as far as no pin forbids the capture; a FEN may set any.
    Square ep_square;
    /// `no_square` where there is no king.
    BySide<Square> kings;

    Square white_king() const { return kings.white; }
    Square black_king() const { return kings.black; }
};

/// The pieces that attack the king of `side`; none without a king. REQUIRES: the state belongs to the board.
Bitboard checkers(const BoardPosition& board, const PositionState& state, Side side);

}  // namespace velmora
