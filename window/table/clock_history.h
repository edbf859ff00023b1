#pragma once

#include <cstdint>
#include <map>

#include "window/session/clock_view.h"
#include "window/session/game_session.h"

namespace velmora {

/// What stood on the clocks when the moves of the record were played: to it they return with a move that is
/// taken back.
class ClockHistory {
public:
    /// Reads the clocks with each move that is played against one; must outlive the session's last notice.
    ClockHistory(GameSession& session, const ClockView& clocks);
    ClockHistory(const ClockHistory&) = delete;  // the session knows where it is
    ClockHistory& operator=(const ClockHistory&) = delete;

    /// The referee knows the clock of an engine better, whose move was the last one.
    void correct(Side side, std::int32_t centiseconds);

    /// At the record's current node; null where it wasn't played against a clock.
    const BySide<ClockReading>* here() const;

private:
    GameSession& m_session;
    std::int32_t m_node = 0;                                  // where the board was at the last reading
    std::map<std::int32_t, BySide<ClockReading>> m_readings;  // by the node that the move led to
};

}  // namespace velmora
