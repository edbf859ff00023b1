#pragma once

#include "chess/board/side.h"
#include "engine/time/level.h"

namespace velmora {

/// What a review is asked to do.
struct ReviewSettings {
    Level level = Level("fixed_movetime 500");  ///< a depth, nodes, or a time for each position
    bool white = true;                          ///< White's moves are judged
    bool black = true;                          ///< Black's

    bool judges(Side side) const { return side == Side::white ? white : black; }
};

}  // namespace velmora
