#pragma once

#include <cstdint>

#include "base/stopwatch.h"

namespace velmora {

/// Decides which clicks on a list count: the very first one does not, and none does that follows an accepted
/// one within 100 ms, so that a bouncing button moves one row.
class ClickGate {
public:
    /// `now` is for tests, which bring a time of their own.
    explicit ClickGate(Stopwatch::TimeSource now = Stopwatch::steady_time) : m_stopwatch(now) {}

    /// Whether the click that happens now counts.
    bool accept() {
        constexpr std::int64_t pause_ms = 101;
        if (m_clicks++ == 0) return false;
        if (m_any_accepted && m_stopwatch.elapsed_ms() < pause_ms) return false;
        m_any_accepted = true;
        m_stopwatch.reset();
        m_stopwatch.start();
        return true;
    }

private:
    Stopwatch m_stopwatch;
    std::uint64_t m_clicks = 0;
    bool m_any_accepted = false;
};

}  // namespace velmora
