#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <optional>

#include "base/stopwatch.h"

namespace velmora {

/// The searches that were stopped and whose move has not come yet.
///
/// A stopped engine still answers with a move. Taken for the answer of the next search, it would be played
/// in a position that it was not meant for; so what was stopped is counted here, and the next move pays for
/// the oldest entry. An entry lapses after five seconds: that engine keeps its answer to itself.
class StoppedSearches {
public:
    static constexpr std::chrono::seconds lapse_after{5};

    explicit StoppedSearches(Stopwatch::TimeSource now = Stopwatch::steady_time) : m_now(now) {}

    /// Notes a search that was stopped in the game of that number.
    void add(std::uint32_t game);

    /// The game of the oldest entry, which is taken off; nothing when no move is owed.
    std::optional<std::uint32_t> pay();

    /// Whether a move is owed.
    bool owed();

private:
    struct Entry {
        std::chrono::nanoseconds stopped_at;
        std::uint32_t game;
    };

    Stopwatch::TimeSource m_now;
    std::deque<Entry> m_entries;  // oldest first
};

}  // namespace velmora
