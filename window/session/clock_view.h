#pragma once

#include <cstdint>
#include <optional>

#include "chess/board/side.h"
#include "engine/time/level.h"

namespace velmora {

/// What a clock shows, and how far its side has come.
struct ClockReading {
    std::int32_t centiseconds = 0;  ///< left
    std::int32_t moves = 0;         ///< made in the session of the time control

    bool operator==(const ClockReading&) const = default;
};

/// The two clocks above the board. The referee keeps its own; these only show.
class ClockView {
public:
    virtual ~ClockView() = default;

    /// Both clocks show the time that they begin with; which of them runs stays as it is.
    virtual void reset_clocks(const Level& level) = 0;
    virtual void stop_clocks() = 0;
    /// Starts the clock of `side`; the other one stops and receives its increment.
    virtual void start_clock(Side side) = 0;
    /// Marks whose move it is, without running a clock.
    virtual void mark_clock(Side side) = 0;

    /// What they show now.
    virtual BySide<ClockReading> read_clocks() const = 0;
    /// Has them show this again, and that of `running` run, if there is one.
    virtual void restore_clocks(const BySide<ClockReading>& readings, std::optional<Side> running) = 0;
};

}  // namespace velmora
