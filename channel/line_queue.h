#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <string>

namespace velmora {

/// A first-in first-out queue of text lines between two threads.
///
/// Many threads may put(); one thread reads, in one of two ways: the referee blocks in wait_and_pop(), the
/// window calls drain() on its tick. Beyond `crowded_at` waiting lines the oldest lines that a predicate
/// calls expendable are dropped, so that a reader held up by a dialog does not let a talkative engine fill
/// the memory.
class LineQueue {
public:
    /// Waiting lines above which expendable ones are dropped.
    static constexpr std::size_t crowded_at = 10000;

    using Expendable = std::function<bool(const std::string&)>;

    LineQueue() = default;
    explicit LineQueue(Expendable expendable) : m_expendable(std::move(expendable)) {}

    LineQueue(const LineQueue&) = delete;
    LineQueue& operator=(const LineQueue&) = delete;

    /// Appends a line and wakes one waiting reader.
    void put(const std::string& line);
    /// Appends a line that can wait: a reader that sleeps gets it with the next put() or announce(), so that
    /// it is woken once for all.
    void put_quietly(const std::string& line);
    /// Wakes one waiting reader for what was put quietly.
    void announce() { m_filled.notify_one(); }

    /// The front line; waits for one.
    std::string wait_and_pop();

    /// The front line if there is one now.
    std::optional<std::string> try_pop();

    /// Hands every waiting line to `handle`, front first, until the queue is empty, with the queue LOCKED all
    /// the while: a handler that opens a dialog thereby holds up every writer until the dialog is answered,
    /// and lines that arrive meanwhile wait outside. `handle` must not call back into this queue.
    void drain(const std::function<void(const std::string&)>& handle);

    /// Drops all lines but those that `keep` accepts.
    void clear(const std::function<bool(const std::string&)>& keep = {});

    bool empty() const;
    std::size_t size() const;

private:
    std::string pop();  // REQUIRES: locked, and not empty
    void drop_expendable_front();

    const Expendable m_expendable;
    mutable std::mutex m_mutex;
    std::condition_variable m_filled;
    std::deque<std::string> m_lines;  // guarded by m_mutex
    std::size_t m_search_from = 0;    // guarded by m_mutex; no expendable line stands ahead of this index
};

}  // namespace velmora
