#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "tournament/standings.h"
#include "tournament/standings_sheet.h"
#include "tournament/tournament.h"

namespace velmora {

/// The standings of a tournament that may be under way: begun from its file, kept true result by result, so
/// that a game more costs the same however many have been played.
///
/// Its unit is the game: the games of such a tournament come in no pairs of one opening.
class LiveStandings {
public:
    explicit LiveStandings(const Tournament& tournament);

    /// Gives a game of the schedule its result. False for a game that there isn't or that has one.
    bool set_result(std::int32_t number, const std::string& result);

    /// The number of the first game without a result; 0 when all have been played.
    std::int32_t next_game() const;

    StandingsSheet sheet() const;

private:
    void skip_played();

    std::string m_title;
    std::vector<std::string> m_names;
    std::vector<TournamentGame> m_games;
    Standings m_standings;
    std::size_t m_next = 0;  // index of the first game without a result
    std::size_t m_open = 0;
};

}  // namespace velmora
