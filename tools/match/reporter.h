#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "matches/finished_game.h"
#include "tools/match/options.h"
#include "tournament/standings.h"

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
    void finished(const FinishedGame& game, const Standings& games);
    void ended(const Standings& games);

    /// The names as they are known by now; a setup's own where the engine has not been started.
    std::string name(std::size_t engine) const;
    std::vector<std::string> names() const;

private:
    void score(const Standings& games);
    void ratings(const Standings& games);
    void test(const Standings& games);
    void ranking(const Standings& games);
    std::string pairs_field(const OutcomeCounts& counts) const;
    void note(const ScheduledGame& game, const BySide<std::string>& names);

    std::ostream& m_out;
    const MatchOptions& m_options;
    const std::uint64_t m_total;
    const Meanwhile m_meanwhile;
    std::vector<std::string> m_names;
};

/// Whether the match's test is decided; none where it has no test.
Sprt::Decision decision_of_test(const MatchOptions& options, const Standings& games);

}  // namespace velmora
