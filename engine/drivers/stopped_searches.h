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
///
/// Neither protocol numbers its searches, so counting is all that there is: both promise one move for each
/// search, in order. Five seconds are far more than an engine takes to notice a "stop"; a wrong entry that
/// stayed would swallow a move that somebody waits for, which is worse than a late move that isn't
/// recognised.
class StoppedSearches {
public:
    /// After this time a move is taken for the answer to what was asked last.
    static constexpr std::chrono::seconds lapse_after{5};

    /// The source of the time is a parameter so that five seconds can pass without anybody waiting for
    /// them.
    explicit StoppedSearches(Stopwatch::TimeSource now = Stopwatch::steady_time) : m_now(now) {}

    /// Notes a search that was stopped in the game of that number.
    /// The number is the driver's own: by it a late move is told from one of a game that the engine has
    /// been taken out of since. The driver of UCI needs none and gives 0.
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
