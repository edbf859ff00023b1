#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "chess/board/square.h"

namespace velmora {

/// What the board hints at beside the position itself. Squares are those of the position, whichever side the
/// board is seen from. Values: whoever knows the rules computes them and hands them down.
struct BoardMarks {
    std::optional<std::pair<Square, Square>> last_move;  ///< from and to of the move that led to the position
    std::optional<Square> selected;                      ///< the piece that is about to move
    std::vector<Square> targets;                         ///< empty squares that it can go to
    std::vector<Square> captures;                        ///< squares that it can take on
    std::optional<Square> checked_king;
    bool operator==(const BoardMarks&) const = default;
};

/// The marks as a board turned by half shows them.
BoardMarks turned(const BoardMarks& marks);

/// Which squares carry another mark in `after` than in `before`, each once, in ascending order.
/// Only these are painted anew: most steps through a game change a handful of the 64.
std::vector<Square> changed_squares(const BoardMarks& before, const BoardMarks& after);

}  // namespace velmora
