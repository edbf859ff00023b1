#include "channel/line_queue.h"

#include <algorithm>

namespace velmora {

void LineQueue::put(const std::string& line) {
    put_quietly(line);
    m_filled.notify_one();
}

void LineQueue::put_quietly(const std::string& line) {
    const Class kind = m_classify ? m_classify(line) : Class();
    const std::lock_guard lock(m_mutex);
    append(line, kind);
}

void LineQueue::put_urgently(const std::string& line) {
    {
        const std::lock_guard lock(m_mutex);
        m_urgent.push_back(line);
    }
    m_filled.notify_one();
}

void LineQueue::append(const std::string& line, Class kind) {
    if (kind.account != 0) {
        std::size_t& count = m_counted[kind.account];
        if (count == account_limit) return;
        ++count;
    }
    m_entries.push_back({line, kind});
    m_bytes += line.size();
    while (is_crowded() && drop_expendable()) continue;
}

/// Drops the oldest line that may go; false when there is none.
bool LineQueue::drop_expendable() {
    // The search starts where the last one ended: what it passed over is still not expendable.
    const auto start = m_entries.begin() + static_cast<std::ptrdiff_t>(m_search_from);
    const auto victim =
        std::find_if(start, m_entries.end(), [](const Entry& entry) { return entry.kind.expendable; });
    m_search_from = static_cast<std::size_t>(victim - m_entries.begin());
    if (victim == m_entries.end()) return false;
    forget(*victim);
    m_entries.erase(victim);
    return true;
}

void LineQueue::forget(const Entry& entry) {
    m_bytes -= entry.line.size();
    if (entry.kind.account == 0) return;
    const auto account = m_counted.find(entry.kind.account);
    if (--account->second == 0) m_counted.erase(account);
}

std::string LineQueue::wait_and_pop() {
    std::unique_lock lock(m_mutex);
    m_filled.wait(lock, [this] { return !is_empty(); });
    return pop();
}

std::optional<std::string> LineQueue::try_pop() {
    const std::lock_guard lock(m_mutex);
    if (is_empty()) return std::nullopt;
    return pop();
}

std::string LineQueue::pop() {
    if (!m_urgent.empty()) {
        std::string line = std::move(m_urgent.front());
        m_urgent.pop_front();
        return line;
    }
    forget(m_entries.front());
    std::string line = std::move(m_entries.front().line);
    m_entries.pop_front();
    if (m_search_from > 0) --m_search_from;
    return line;
}

void LineQueue::drain(const std::function<void(const std::string&)>& handle) {
    const std::lock_guard lock(m_mutex);
    while (!is_empty()) handle(pop());
}

void LineQueue::clear(const std::function<void(const std::string&)>& dropped) {
    const std::lock_guard lock(m_mutex);
    if (dropped) {
        for (const Entry& entry : m_entries) dropped(entry.line);
    }
    m_entries.clear();
    m_bytes = 0;
    m_counted.clear();
    m_search_from = 0;
}

bool LineQueue::contains(const std::function<bool(const std::string&)>& sought) const {
    const std::lock_guard lock(m_mutex);
    return std::ranges::any_of(m_entries, sought, &Entry::line);
}

bool LineQueue::empty() const {
    const std::lock_guard lock(m_mutex);
    return is_empty();
}

std::size_t LineQueue::size() const {
    const std::lock_guard lock(m_mutex);
    return m_urgent.size() + m_entries.size();
}

}  // namespace velmora
