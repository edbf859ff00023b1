#pragma once

#include <array>
#include <chrono>
#include <cstddef>

namespace velmora {

/// Counts the deaths of an engine between two moves of its own, to tell one that can't be kept alive from one
/// that failed once.
///
/// A limit is needed because a restart leads straight to the next death where the cause is the position or
/// a setting; without one the program would start processes as fast as it can.
class DeathCount {
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /// So many deaths within the span are one too many.
    static constexpr std::size_t limit = 3;
    static constexpr std::chrono::seconds span{60};

    /// Notes a death; true when the engine isn't to be started again.
    bool add(TimePoint now) {
        m_deaths[m_count++ % limit] = now;
        const TimePoint oldest = m_deaths[m_count % limit];
        return m_count >= limit && now - oldest <= span;
    }

    /// The engine has moved, or another one has come.
    void clear() { m_count = 0; }

private:
    std::array<TimePoint, limit> m_deaths{};  // a ring
    std::size_t m_count = 0;
};

}  // namespace velmora
