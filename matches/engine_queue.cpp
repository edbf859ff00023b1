#include "matches/engine_queue.h"

#include <utility>

namespace velmora {

void EngineQueue::put(EngineEvent event) {
    {
        const std::lock_guard lock(m_mutex);
        m_last_sign = Clock::now();
        m_events.push_back(std::move(event));
    }
    m_changed.notify_one();
}

void EngineQueue::put_info(std::string text) {
    const std::lock_guard lock(m_mutex);
    m_last_sign = Clock::now();
    if (text.find("score") != std::string::npos) m_info = std::move(text);
}

std::optional<EngineEvent> EngineQueue::wait(Clock::time_point deadline, const std::stop_token& leaving) {
    std::unique_lock lock(m_mutex);
    if (!m_changed.wait_until(lock, leaving, deadline, [this] { return !m_events.empty(); })) return {};
    EngineEvent event = std::move(m_events.front());
    m_events.pop_front();
    return event;
}

std::string EngineQueue::last_info() {
    const std::lock_guard lock(m_mutex);
    return m_info;
}

EngineQueue::Clock::time_point EngineQueue::last_sign() {
    const std::lock_guard lock(m_mutex);
    return m_last_sign;
}

void EngineQueue::forget_info() {
    const std::lock_guard lock(m_mutex);
    m_info.clear();
    m_last_sign = Clock::now();
}

void EngineQueue::clear() {
    const std::lock_guard lock(m_mutex);
    m_events.clear();
    m_info.clear();
    m_last_sign = Clock::now();
}

}  // namespace velmora
