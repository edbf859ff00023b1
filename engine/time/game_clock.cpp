#include "engine/time/game_clock.h"

#include <algorithm>
#include <limits>

namespace velmora {

namespace {

std::int32_t in_32_bits(std::int64_t value) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, std::numeric_limits<std::int32_t>::min(),
                                                              std::numeric_limits<std::int32_t>::max()));
}

}  // namespace

GameClock::GameClock(Stopwatch::TimeSource now) : m_stopwatch(now) { set_level(Level()); }

void GameClock::set_level(const Level& level) {
    m_session_moves = level.moves();
    m_base_ms = level.base_ms();
    m_inc_ms = level.inc_ms();
    restart();
}

void GameClock::restart() {
    m_stopwatch.reset();
    m_moves_done = 0;
    m_allowance = m_base_ms;
    m_start_mark = 0;
}

std::int32_t GameClock::time_left() const { return in_32_bits(m_allowance - m_stopwatch.elapsed_ms()); }

std::int32_t GameClock::move_time() const { return in_32_bits(m_stopwatch.elapsed_ms() - m_start_mark); }

void GameClock::start_clock() {
    m_stopwatch.start();
    m_start_mark = m_stopwatch.elapsed_ms();
}

void GameClock::move_and_stop_clock(std::uint32_t stamp, std::uint32_t present) {
    m_stopwatch.stop();
    ++m_moves_done;
    if (m_moves_done == m_session_moves) {
        m_moves_done = 0;
        m_allowance += m_base_ms;
    }
    m_allowance += m_inc_ms;
    if (stamp != 0 && stamp < present) m_allowance += present - stamp;
}

void GameClock::set_time_left(std::int32_t milliseconds) {
    m_allowance = milliseconds;
    m_stopwatch.reset();
}

std::int32_t GameClock::moves_to_go() const { return in_32_bits(m_session_moves - m_moves_done); }

}  // namespace velmora
