#include "engine/finding/engine_search.h"

#include <algorithm>
#include <utility>

#include "engine/finding/engine_question.h"

namespace velmora {

void EngineSearch::add(const std::vector<std::string>& paths) {
    {
        const std::lock_guard lock(m_mutex);
        for (const auto& path : paths) {
            if (std::ranges::find(m_known, path) != m_known.end()) continue;
            m_known.push_back(path);
            m_waiting.push_back(path);
            ++m_progress.total;
        }
        if (m_waiting.empty() || std::exchange(m_runs, true)) return;
    }
    // One that has ended is joined here.
    m_thread = std::jthread([this](const std::stop_token& leaving) { ask_all(leaving); });
}

void EngineSearch::cancel() {
    {
        const std::lock_guard lock(m_mutex);
        m_waiting.clear();
    }
    m_thread.request_stop();
    if (m_thread.joinable()) m_thread.join();
}

EngineSearch::Progress EngineSearch::progress() const {
    const std::lock_guard lock(m_mutex);
    return m_progress;
}

void EngineSearch::ask_all(const std::stop_token& leaving) {
    std::unique_lock lock(m_mutex);
    while (!m_waiting.empty() && !leaving.stop_requested()) {
        const std::string path = m_progress.asked = m_waiting.front();
        m_waiting.pop_front();
        lock.unlock();
        auto engine = ask_engine(path, patience, leaving);
        lock.lock();
        ++m_progress.done;
        if (engine) {
            m_progress.engines.push_back(std::move(*engine));
        } else if (!leaving.stop_requested()) {
            m_progress.others.push_back(path);
        }
    }
    m_progress.asked.clear();
    m_runs = false;
}

}  // namespace velmora
