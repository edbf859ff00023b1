#include "views/clocks/clock_pair.h"

#include <algorithm>
#include <limits>

namespace velmora {

namespace {

std::int32_t limited(double centiseconds) {
    using Limits = std::numeric_limits<std::int32_t>;
    return std::int32_t(std::clamp(centiseconds, double(Limits::min()), double(Limits::max())));
}

}  // namespace

std::string clock_text(std::int64_t centiseconds) {
    return std::to_string(centiseconds / 6000) + ":" + std::to_string(centiseconds / 100 % 60);
}

ClockPair::ClockPair(Stopwatch::TimeSource now) {
    for (const Side side : {Side::white, Side::black}) m_sides[side].timer = Stopwatch(now);
}

void ClockPair::set_level(const Level& level) {
    m_moves_per_session = level.moves();
    const auto whole_seconds = level.inc_ms() / 1000;
    m_increment = float(whole_seconds);
    m_base_time = std::min(level.base_ms() / 10, longest_shown_time);
    for (const Side side : {Side::white, Side::black}) {
        m_sides[side].moves = 0;
        set_time(side, m_base_time);
    }
}

void ClockPair::reset() {
    for (const Side side : {Side::white, Side::black}) {
        SideClock& clock = m_sides[side];
        clock.time = m_base_time;
        clock.moves = 0;
        clock.timer.reset();
    }
}

void ClockPair::set_time(Side side, std::int32_t centiseconds) {
    SideClock& clock = m_sides[side];
    clock.time = centiseconds;
    clock.timer.reset();
    if (clock.running) clock.timer.start();
}

void ClockPair::start(Side side) {
    SideClock& mover = m_sides[side];
    mover.running = true;
    mover.timer.stop();  // a watch that runs keeps what it has measured
    mover.timer.start();

    SideClock& waiter = m_sides[opposite(side)];
    waiter.running = false;
    waiter.timer.stop();
    // Single precision, in which the increment is kept.
    waiter.time = limited(float(waiter.time) + 100 * m_increment);
    if (++waiter.moves == m_moves_per_session) {
        waiter.moves = 0;
        waiter.time = limited(double(waiter.time) + m_base_time);
    }
}

void ClockPair::stop() {
    for (const Side side : {Side::white, Side::black}) {
        m_sides[side].timer.stop();
        m_sides[side].running = false;
    }
}

std::int32_t ClockPair::time_now(Side side) const {
    const SideClock& clock = m_sides[side];
    return limited(clock.time - clock.timer.elapsed() * 100);
}

void ClockPair::restore(Side side, std::int32_t centiseconds, std::int32_t moves) {
    set_time(side, centiseconds);
    m_sides[side].moves = moves;
    m_sides[side].shown.reset();
}

void ClockPair::run(Side side) {
    m_sides[side].running = true;
    m_sides[side].timer.start();
}

/// A second more than shown is no time given but the difference of two clocks that were read at different
/// moments.
std::optional<std::string> ClockPair::refresh(Side side) {
    SideClock& clock = m_sides[side];
    const auto elapsed = std::int64_t(clock.timer.elapsed() * 100);
    const std::int64_t left = std::min<std::int64_t>(clock.time - elapsed, longest_shown_time);
    const std::int64_t seconds = left / 100;
    if (clock.shown && (seconds == *clock.shown || seconds == *clock.shown + 1)) return std::nullopt;
    clock.shown = seconds;
    return clock_text(left);
}

}  // namespace velmora
