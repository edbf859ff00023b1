#pragma once

#include <chrono>
#include <cstdint>

#include "base/stopwatch.h"
#include "engine/time/level.h"
#include "engine/time/wall_clock.h"

namespace velmora {

/// One side's clock in a game. Times in milliseconds.
///
/// Time left is the allowance (all time given so far: base, increments, further sessions, refunds) less what
/// the stop watch measured. Sums are kept in 64 bits, what is read is limited to 32.
///
/// Nothing is counted down, so there is no tick and no rounding that adds up: the time is worked out when
/// it is asked for. A clock belongs to one thread at a time; the driver's mutex sees to that for an
/// engine's.
class GameClock {
public:
    explicit GameClock(Stopwatch::TimeSource now = Stopwatch::steady_time);

    /// Takes over a time control and puts the clock to its start.
    void set_level(const Level& level);
    /// Puts the clock back to the start of a game.
    void restart();

    /// Negative when the side has overstepped.
    std::int32_t time_left() const;
    /// What the present or the last move took.
    std::int32_t move_time() const;

    void start_clock();

    /// Stops the clock for a finished move: counts it, adds the increment and, at the end of a session, the
    /// time of the next one. `stamp` is the arrival_stamp() of the engine's line, 0 for none; the time
    /// between it and `present` is refunded.
    /// The stamps are 32 bits of the wall clock: where they wrap, or the clock was set back, the stamp is
    /// not below `present` and nothing is refunded.
    void move_and_stop_clock(std::uint32_t stamp, std::uint32_t present = arrival_stamp());

    /// When the last move came, by the steady clock.
    std::chrono::steady_clock::time_point moved_at() const {
        return std::chrono::steady_clock::time_point(m_stopwatch.stopped_at());
    }

    void set_time_left(std::int32_t milliseconds);

    /// Moves still to be made in the session; 0 or less when there is no session.
    std::int32_t moves_to_go() const;
    void set_moves_done(std::int32_t moves) { m_moves_done = moves; }
    std::int32_t increment() const { return m_inc_ms; }

private:
    Stopwatch m_stopwatch;
    std::int64_t m_start_mark = 0;  // elapsed milliseconds at the last start
    std::int64_t m_allowance = 0;
    std::int32_t m_session_moves = 0;
    std::int32_t m_base_ms = 0;
    std::int32_t m_inc_ms = 0;
    std::int64_t m_moves_done = 0;  // in the current session
};

}  // namespace velmora
