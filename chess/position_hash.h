#pragma once

#include <cstdint>
#include <vector>

#include "chess/board_position.h"
#include "chess/move.h"
#include "chess/position_state.h"
#include "chess/side.h"

namespace velmora {

/// The stacks of the incremental keys of a position, one entry a ply: the XOR of the Polyglot numbers of all
/// men, and the same over the pawns alone. Castling, en passant and turn are added on demand.
class PositionHash {
public:
    PositionHash() : m_stack(1) {}

    /// Both stacks start over with one entry, computed from the board.
    void reset(const BoardPosition& board);

    /// Follows a move of `mover`, and back.
    void do_move(Move move, Side mover);
    void undo_move() { m_stack.pop_back(); }

    std::uint64_t piece_key() const { return m_stack.back().pieces; }
    std::uint64_t pawn_key() const { return m_stack.back().pawns; }

    /// The Polyglot key. The rights that only Chess960 has go in as a number.
    std::uint64_t key(const PositionState& state, Side to_move) const;

private:
    struct Keys {
        std::uint64_t pieces = 0;
        std::uint64_t pawns = 0;
    };
    std::vector<Keys> m_stack;
};

}  // namespace velmora
