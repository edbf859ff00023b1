#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "matches/schedule.h"
#include "tools/match/options.h"
#include "tournament/tournament.h"

namespace velmora {

/// The open games of a tournament of the window's list, in its order, and the way of the results back into
/// its file, where both programs read them.
///
/// A result is stored once all games ahead of it have theirs, since a tournament's file knows only the first
/// open game. Of games that ended early when the program is killed, some are played again.
class TournamentGames {
public:
    /// Throws UsageError for a tournament that can't be read or played.
    explicit TournamentGames(const std::string& name);

    /// Puts engines, levels, openings and tags of the tournament into the options.
    void prepare(MatchOptions& options) const;

    std::uint64_t size() const { return static_cast<std::uint64_t>(m_tournament.games().size()); }
    /// Any thread.
    std::optional<ScheduledGame> next();
    /// Any thread. Throws std::runtime_error when the file can't be written; the result goes with the next.
    void set_result(std::uint64_t number, const std::string& result);

private:
    std::mutex m_mutex;
    Tournament m_tournament;                       // this and what follows: guarded by m_mutex
    std::size_t m_next = 0;                        // index of a game
    std::map<std::uint64_t, std::string> m_early;  // results behind an open game, by number
};

}  // namespace velmora
