#include "collection/batch_sequence.h"

#include <utility>

namespace velmora {

bool BatchSequence::hand_over(std::size_t number, GameBatch batch, Part part) {
    std::unique_lock lock(m_mutex);
    const auto may_leave = [&] { return part == Part::is_done && m_waiting.size() < m_most_waiting; };
    m_turn.wait(lock, [&] { return m_stopped || m_next == number || may_leave(); });
    if (m_stopped) return false;
    if (m_next != number) {
        m_waiting.emplace(number, std::move(batch));
        return true;
    }
    // Nobody else has a turn until m_next is counted up.
    lock.unlock();
    m_take(batch);
    lock.lock();
    if (part == Part::is_done) {
        ++m_next;
        take_waiting(lock);
    }
    return !m_stopped;
}

void BatchSequence::take_waiting(std::unique_lock<std::mutex>& lock) {
    for (auto found = m_waiting.find(m_next); found != m_waiting.end() && !m_stopped;
         found = m_waiting.find(m_next)) {
        const auto batch = std::move(found->second);
        m_waiting.erase(found);
        lock.unlock();
        m_take(batch);
        lock.lock();
        ++m_next;
    }
    m_turn.notify_all();
}

void BatchSequence::stop() {
    const std::lock_guard lock(m_mutex);
    m_stopped = true;
    m_turn.notify_all();
}

}  // namespace velmora
