#include "base/stopwatch.h"

namespace velmora {

std::chrono::nanoseconds Stopwatch::steady_time() {
    return std::chrono::steady_clock::now().time_since_epoch();
}

Stopwatch::Stopwatch(const Stopwatch& other) : m_now(other.m_now), m_state(other.state()) {}

Stopwatch& Stopwatch::operator=(const Stopwatch& other) {
    // The two mutexes are never held together, so that a = b and b = a cannot block each other.
    const State copy = other.state();
    const std::lock_guard lock(m_mutex);
    m_now = other.m_now;
    m_state = copy;
    return *this;
}

Stopwatch::State Stopwatch::state() const {
    const std::lock_guard lock(m_mutex);
    return m_state;
}

void Stopwatch::start() {
    const std::lock_guard lock(m_mutex);
    m_state.stopped = false;
    m_state.lap_start = m_now();
}

void Stopwatch::stop() {
    const std::lock_guard lock(m_mutex);
    if (m_state.stopped) return;
    m_state.stopped = true;
    m_state.stopped_at = m_now();
    m_state.accumulated += m_state.stopped_at - m_state.lap_start;
}

void Stopwatch::reset() {
    const std::lock_guard lock(m_mutex);
    m_state = State{};
}

double Stopwatch::elapsed() const {
    const State now = state();
    const auto sum = now.accumulated + (now.stopped ? std::chrono::nanoseconds(0) : m_now() - now.lap_start);
    return static_cast<double>(sum.count()) / 1e9;
}

std::int64_t Stopwatch::elapsed_ms() const { return static_cast<std::int64_t>(1000.0 * elapsed()); }

}  // namespace velmora
