#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "matches/finished_game.h"
#include "matches/match_statistics.h"
#include "tools/match/options.h"

namespace velmora {

/// Prints what happens in a match, in the lines that scripts look for: "Started game", "Finished game",
/// "Score of", "Elo difference", "SPRT". With --json one object an event instead.
class Reporter {
public:
    /// How much is told while games are played: nothing where a view shows it.
    enum class Meanwhile { lines, nothing };

    Reporter(std::ostream& out, const MatchOptions& options, std::uint64_t total,
             Meanwhile meanwhile = Meanwhile::lines);

    void started(const ScheduledGame& game, const BySide<std::string>& names);
    /// `games` are all that count by now, the finished one among them where it does.
    void finished(const FinishedGame& game, const MatchTally& games);
    void ended(const MatchTally& games);

    /// The names as they are known by now; a setup's own where the engine has not been started.
    std::string name(std::size_t engine) const;
    std::vector<std::string> names() const;

private:
    void score(const MatchTally& games);
    void ratings(const MatchTally& games);
    void ranking(const MatchTally& games);
    void note(const ScheduledGame& game, const BySide<std::string>& names);

    std::ostream& m_out;
    const MatchOptions& m_options;
    const std::uint64_t m_total;
    const Meanwhile m_meanwhile;
    std::vector<std::string> m_names;
};

/// Whether the test is decided: 1 for elo1, -1 for elo0, 0 for neither yet.
int sprt_decision(const MatchOptions& options, const MatchTally& games);

}  // namespace velmora
