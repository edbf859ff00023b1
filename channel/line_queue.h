#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

namespace velmora {

/// A first-in first-out queue of text lines between two threads.
///
/// Many threads may put(); one thread reads, in one of two ways: the referee blocks in wait_and_pop(), the
/// window calls drain() on its tick. A reader that is held up by a dialog must not let a talkative writer
/// fill the memory: lines are classified as they come, and what their class allows is dropped.
///
/// The limits are far above what a reader in good health lets wait; they are a safety net. Which lines may
/// go is for the owner of the queue to say. The oldest of these go first, since of search output only the
/// latest is worth showing. A limit on all lines alike would lose a best move behind an engine's chatter.
class LineQueue {
public:
    /// Waiting lines, and their bytes, above which the oldest expendable lines are dropped.
    static constexpr std::size_t crowded_at = 10000;
    static constexpr std::size_t crowded_bytes = 16 << 20;

    /// Lines of one account that may wait; what comes beyond is dropped.
    static constexpr std::size_t account_limit = 100;

    /// What may become of a line that has to wait.
    struct Class {
        bool expendable = false;    ///< may be dropped when the queue is crowded
        std::uint64_t account = 0;  ///< whose lines it is counted among; 0 where they aren't counted
    };
    /// Called by the writer, ahead of the lock, so that readers don't wait for it. By many threads at
    /// once: it must not change anything.
    using Classify = std::function<Class(const std::string&)>;

    LineQueue() = default;
    explicit LineQueue(Classify classify) : m_classify(std::move(classify)) {}

    LineQueue(const LineQueue&) = delete;
    LineQueue& operator=(const LineQueue&) = delete;

    /// Appends a line and wakes one waiting reader.
    void put(const std::string& line);
    /// Appends a line that can wait: a reader that sleeps gets it with the next put() or announce(), so that
    /// it is woken once for all.
    void put_quietly(const std::string& line);
    /// The line overtakes all that wait, and is never dropped.
    ///
    /// For a command to quit, behind which nothing counts any more.
    void put_urgently(const std::string& line);
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

    /// Drops all lines but the urgent ones, telling `dropped` of each.
    void clear(const std::function<void(const std::string&)>& dropped = {});

    /// Whether a line waits that `sought` accepts; urgent ones aren't looked at.
    bool contains(const std::function<bool(const std::string&)>& sought) const;
    bool empty() const;
    std::size_t size() const;

private:
    struct Entry {
        std::string line;
        Class kind;
    };

    bool is_empty() const { return m_urgent.empty() && m_entries.empty(); }  // REQUIRES: locked
    std::string pop();  // REQUIRES: locked, and not empty
    void append(const std::string& line, Class kind);
    bool is_crowded() const { return m_entries.size() > crowded_at || m_bytes > crowded_bytes; }
    bool drop_expendable();
    void forget(const Entry& entry);

    const Classify m_classify;
    mutable std::mutex m_mutex;
    std::condition_variable m_filled;

    // Guarded by m_mutex.
    std::deque<std::string> m_urgent;  // ahead of all others
    std::deque<Entry> m_entries;
    std::size_t m_bytes = 0;                         // of the lines in m_entries
    std::map<std::uint64_t, std::size_t> m_counted;  // lines in m_entries by account
    std::size_t m_search_from = 0;                   // no expendable line stands ahead of this index
};

}  // namespace velmora
