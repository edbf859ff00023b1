#pragma once

#include <chrono>
#include <cstdint>
#include <mutex>

namespace velmora {

/// A stop watch that any thread may read while another one starts or stops it.
///
/// It measures by the steady clock, so that setting the system clock costs nobody a game. Stopped after
/// construction: whoever wants a session clock must start() it.
///
/// A mutex rather than atomic members, because start, sum and state belong together: a reader between two
/// stores would see a lap counted twice or not at all. It is held for a few instructions, so nobody waits
/// for it noticeably.
class Stopwatch {
public:
    /// Where the time comes from; a test brings its own.
    ///
    /// A plain function and no object, so that a stop watch can be copied without a thought for who owns
    /// its clock.
    using TimeSource = std::chrono::nanoseconds (*)();
    static std::chrono::nanoseconds steady_time();

    explicit Stopwatch(TimeSource now = steady_time) : m_now(now) {}
    Stopwatch(const Stopwatch& other);
    Stopwatch& operator=(const Stopwatch& other);
    ~Stopwatch() = default;

    /// Runs from now on. On a running stop watch the lap begins anew and what had run of it is dropped.
    void start();
    /// Adds the lap to the sum; nothing when stopped.
    void stop();
    /// Stops and forgets the sum.
    void reset();

    /// Seconds measured since the last reset.
    double elapsed() const;
    /// When it was last stopped, by its own clock; 0 before.
    std::chrono::nanoseconds stopped_at() const { return state().stopped_at; }
    /// elapsed() in whole milliseconds, cut towards zero.
    std::int64_t elapsed_ms() const;

private:
    struct State {
        std::chrono::nanoseconds lap_start{0};
        std::chrono::nanoseconds accumulated{0};
        std::chrono::nanoseconds stopped_at{0};
        bool stopped = true;
    };
    State state() const;

    TimeSource m_now;
    mutable std::mutex m_mutex;
    State m_state;  // guarded by m_mutex
};

}  // namespace velmora
