#pragma once

#include "chess/board/side.h"
#include "engine/time/level.h"

namespace velmora {

/// The two clocks above the board. The referee keeps its own; these only show.
class ClockView {
public:
    virtual ~ClockView() = default;

    /// Both clocks show the time that they begin with; which of them runs stays as it is.
    virtual void reset_clocks(const Level& level) = 0;
    virtual void stop_clocks() = 0;
    /// Starts the clock of `side`; the other one stops and receives its increment.
    virtual void start_clock(Side side) = 0;
    virtual void set_clock(Side side, int centiseconds) = 0;
    /// Marks whose move it is, without running a clock.
    virtual void mark_clock(Side side) = 0;
};

}  // namespace velmora
