#include "channel/line_queue.h"

#include <algorithm>
#include <utility>

namespace velmora {

void LineQueue::put(const std::string& line) {
    put_quietly(line);
    m_filled.notify_one();
}

void LineQueue::put_quietly(const std::string& line) {
    const std::lock_guard lock(m_mutex);
    m_lines.push_back(line);
    if (m_lines.size() > crowded_at && m_expendable) drop_expendable_front();
}

void LineQueue::drop_expendable_front() {
    // The search starts where the last one ended: what it passed over is still not expendable.
    const auto start = m_lines.begin() + static_cast<std::ptrdiff_t>(std::min(m_search_from, m_lines.size()));
    const auto victim = std::find_if(start, m_lines.end(), m_expendable);
    m_search_from = static_cast<std::size_t>(victim - m_lines.begin());
    if (victim != m_lines.end()) m_lines.erase(victim);
}

std::string LineQueue::wait_and_pop() {
    std::unique_lock lock(m_mutex);
    m_filled.wait(lock, [this] { return !m_lines.empty(); });
    return pop();
}

std::optional<std::string> LineQueue::try_pop() {
    const std::lock_guard lock(m_mutex);
    if (m_lines.empty()) return std::nullopt;
    return pop();
}

std::string LineQueue::pop() {
    std::string line = std::move(m_lines.front());
    m_lines.pop_front();
    if (m_search_from > 0) --m_search_from;
    return line;
}

void LineQueue::drain(const std::function<void(const std::string&)>& handle) {
    const std::lock_guard lock(m_mutex);
    while (!m_lines.empty()) handle(pop());
}

void LineQueue::clear(const std::function<bool(const std::string&)>& keep) {
    const std::lock_guard lock(m_mutex);
    if (keep) {
        std::erase_if(m_lines, [&keep](const std::string& line) { return !keep(line); });
    } else {
        m_lines.clear();
    }
    m_search_from = 0;
}

bool LineQueue::empty() const {
    const std::lock_guard lock(m_mutex);
    return m_lines.empty();
}

std::size_t LineQueue::size() const {
    const std::lock_guard lock(m_mutex);
    return m_lines.size();
}

}  // namespace velmora
