#pragma once

#include "chess/moves/move_list.h"

namespace velmora {

class ChessPosition;

/// Writes legal moves into a list, each with its check bit, in a fixed order. Makes no move to test one.
///
/// Stage one: captures and promotions, by pawn, knight, bishop, rook, queen, king, then sorted by the
/// captured piece's worth, highest first, a stable order. Stage two: quiet moves, by queen, rook, knight,
/// bishop, pawn, king, castling a-side first. Origins and destinations ascend within a kind; a promoting
/// pawn's four moves are queen, rook, bishop, knight. A position that lacks a king has no moves.
///
/// Legal at once, instead of making each candidate and looking whether the king is attacked: that costs a
/// move and its undoing for every candidate, while pins, checkers and danger squares are found once a
/// position.
class MoveGenerator {
public:
    /// All legal moves, appended to the list; returns at once when the list's generation has finished, and
    /// marks it as finished.
    static void generate_all(const ChessPosition& position, MoveList& list);

    /// Stage one alone. Doesn't mark the list as finished.
    static void generate_captures(const ChessPosition& position, MoveList& list);
};

}  // namespace velmora
