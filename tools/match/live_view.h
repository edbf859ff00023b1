#pragma once

#include <chrono>
#include <cstdint>
#include <iosfwd>
#include <map>
#include <string>
#include <vector>

#include "matches/schedule.h"
#include "tools/match/options.h"
#include "tournament/standings.h"

namespace velmora {

/// A match on a terminal, drawn in place: standings, the games that run, the sequential test as a bar, speed
/// and the time that is left at it. Drawn anew at each event, over what it has drawn before.
class LiveView {
public:
    LiveView(std::ostream& out, const MatchOptions& options, std::uint64_t total, std::size_t played)
        : m_out(out), m_options(options), m_total(total), m_played_before(played) {}

    void started(const ScheduledGame& game, const BySide<std::string>& names);
    void finished(const ScheduledGame& game, const std::string& last);
    void draw(const Standings& games, const std::vector<std::string>& names);
    /// Takes what was drawn off the terminal.
    void clear();

private:
    std::string pace(std::size_t played) const;
    std::string table(const Standings& games, const std::vector<std::string>& names) const;
    std::string test_bar(const Standings& games) const;

    std::ostream& m_out;
    const MatchOptions& m_options;
    const std::uint64_t m_total;
    const std::size_t m_played_before;
    const std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    std::map<std::uint64_t, std::string> m_running;  // by number
    std::string m_last;
    std::size_t m_lines = 0;  // on the terminal
};

}  // namespace velmora
