#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/stopwatch.h"
#include "chess/board/side.h"
#include "engine/time/level.h"

namespace velmora {

/// The most that a clock shows, centiseconds: 5555 minutes and 55 seconds.
constexpr std::int32_t longest_shown_time = 33335500;

/// A time as a clock shows it: minutes, ":" and seconds, both plain decimal numbers, so 30300 centiseconds
/// read "5:3".
std::string clock_text(std::int64_t centiseconds);

/// The two clocks of a game as the window keeps them between the referee's updates, without their labels. A
/// side that has run out of time loses nothing here: that is the referee's decision.
///
/// It counts on by itself so that the labels run while the referee, who says the time after each move, says
/// nothing. What it shows may be off by the way of a line; the next update puts it right. Hundredths of a
/// second are its unit since no label shows less than a second.
class ClockPair {
public:
    explicit ClockPair(Stopwatch::TimeSource now = Stopwatch::steady_time);

    /// Takes the time control over and gives both sides its base time. A side that runs goes on running.
    void set_level(const Level& level);
    /// Gives both sides the base time and stops the watches.
    void reset();
    /// A side's time left; the side goes on running from it if it ran.
    void set_time(Side side, std::int32_t centiseconds);
    /// The opponent has just moved: that side's clock stops, gets the increment and, at the end of a session,
    /// the base time.
    void start(Side side);
    /// Stops both clocks. Neither runs on at a later set_time() or set_level().
    void stop();

    /// The text that a side's label must take now; nothing while the second shown is still right, or when the
    /// time has grown by one second only: that much an update of the referee may jump without being seen.
    /// Asked at every tick of the window, twenty times a second: a label that takes a text lays itself out
    /// anew.
    std::optional<std::string> refresh(Side side);

    /// What is left now, centiseconds.
    std::int32_t time_now(Side side) const;
    /// The moves made in this session.
    std::int32_t moves(Side side) const { return m_sides[side].moves; }
    /// Has a side that isn't running stand at this time, with so many moves made in the session.
    void restore(Side side, std::int32_t centiseconds, std::int32_t moves);
    /// The side's clock runs from where it stands, without a move of the opponent.
    void run(Side side);

    /// What was left when the side's watch was last reset, centiseconds.
    std::int32_t time(Side side) const { return m_sides[side].time; }

private:
    struct SideClock {
        Stopwatch timer = Stopwatch();
        std::int32_t time = 0;   // centiseconds left when the timer was last reset
        std::int32_t moves = 0;  // made in this session
        bool running = false;
        std::optional<std::int64_t> shown;  // whole seconds last given by refresh()
    };

    BySide<SideClock> m_sides;
    std::int32_t m_moves_per_session = 0;
    std::int32_t m_base_time = 0;  // centiseconds
    float m_increment = 0;         // whole seconds
};

}  // namespace velmora
