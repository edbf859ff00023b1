#pragma once

#include <array>
#include <cstddef>

#include "chess/board/bitboard.h"
#include "chess/board/board_position.h"
#include "chess/board/piece.h"
#include "chess/board/side.h"
#include "chess/board/square.h"

namespace velmora {

/// Who attacks what, with the real occupancy; attacked squares include those with own pieces.
///
/// The maps belong to one board and are completed when they are first asked for after a change. A copy starts
/// without them, so copying a position does not copy them.
///
/// They are asked for rarely, while a count of moves makes millions of them: so a move merely marks them
/// stale, and nothing follows them step by step. What the generator needs of attacks it computes itself,
/// narrowed to the squares that matter.
class AttackMaps {
public:
    AttackMaps() = default;
    AttackMaps(const AttackMaps&) {}
    AttackMaps& operator=(const AttackMaps&) {
        drop();
        return *this;
    }

    /// Marks the maps as out of date.
    void drop() { m_complete = false; }
    bool complete() const { return m_complete; }
    void compute(const BoardPosition& board);

    // REQUIRES of all that follow: complete().

    /// What the piece on the square attacks; empty for an empty square.
    Bitboard attacks_from(Square square) const {
        return m_from[static_cast<std::size_t>(square.value() & 63)];
    }
    /// All that the colour attacks.
    Bitboard attacks(Side side) const { return m_unions[side][0]; }
    /// What the colour's pieces of one kind attack.
    Bitboard attacks(PieceKind kind, Side side) const {
        return m_unions[side][static_cast<std::size_t>(kind)];
    }

private:
    std::array<Bitboard, 64> m_from;
    BySide<std::array<Bitboard, 8>> m_unions;  // by kind, 0 for all kinds
    bool m_complete = false;
};

/// What a piece attacks from a square, on the given occupancy; empty for no piece.
///
/// A pawn attacks its two forward diagonals whether or not something stands there; its pushes are no
/// attacks.
Bitboard attacks_of(Piece piece, Square square, Bitboard occupied);

/// The pieces of a colour that attack the square, on the given occupancy; empty off the board. Pieces that
/// are not in `occupied` still count as attackers.
///
/// Looks outward from the square instead of over all pieces: attack is symmetric for every kind, and for
/// pawns with the colour turned round, so five lookups do. The occupancy is a parameter so that a caller
/// may ask "and if this piece were gone?" without changing the board.
Bitboard attackers_to(const BoardPosition& board, Square square, Side by, Bitboard occupied);

}  // namespace velmora
