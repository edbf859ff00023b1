#pragma once

#include <cstdint>
#include <vector>

#include "chess/board/board_position.h"
#include "chess/board/move.h"
#include "chess/board/position_state.h"
#include "chess/board/side.h"

namespace velmora {

/// The keys of a position and of those that came before it, one entry a ply.
///
/// Kept are the XOR of the Polyglot numbers of all pieces, the same over the pawns alone, and the whole key
/// for the repetition test, as it was when the move had been made. key() puts castling, en passant and turn
/// together anew, because rights and side can be set behind the back of this class.
///
/// The numbers are those of the Polyglot book format, so that one key serves books, openings and repetition.
/// A stack instead of undoing each exclusive or: the earlier keys are needed anyhow, and taking back is a
/// pop.
class PositionHash {
public:
    PositionHash() : m_stack(1) {}

    /// Starts over with one entry, computed from the board.
    void reset(const BoardPosition& board, const PositionState& state);

    /// Follows a move of `us` that led to `state`, and back.
    template <Side us>
    void do_move(Move move, const PositionState& state);
    void undo_move() { m_stack.pop_back(); }

    std::uint64_t piece_key() const { return m_stack.back().pieces; }
    std::uint64_t pawn_key() const { return m_stack.back().pawns; }

    /// The Polyglot key. The rights that only Chess960 has go in as a number.
    std::uint64_t key(const PositionState& state, Side to_move) const;

    /// Whether the current key has occurred n times, this time included, within the last `halfmoves` plies.
    ///
    /// A move of a pawn or a capture can't be undone, so no position from ahead of one comes again.
    /// REQUIRES: n >= 2.
    bool is_repetition(int n, std::uint16_t halfmoves) const;

private:
    struct Keys {
        std::uint64_t pieces = 0;
        std::uint64_t pawns = 0;
        std::uint64_t position = 0;
    };
    std::vector<Keys> m_stack;
};

extern template void PositionHash::do_move<Side::white>(Move, const PositionState&);
extern template void PositionHash::do_move<Side::black>(Move, const PositionState&);

}  // namespace velmora
