#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "tournament/rating.h"

namespace velmora {

/// Who is how good in a tournament: a table and a cross table, counted game by game, so that a game more
/// costs the same whatever has been played. Players are numbered from 0.
class Standings {
public:
    explicit Standings(std::size_t players);

    /// Counts a game.
    /// @param result     "1-0", "0-1" or "1/2-1/2"; any other counts for nobody
    /// @param encounter  two games of one number make a pair; nothing for a game without a partner
    void add(std::size_t white, std::size_t black, std::string_view result,
             std::optional<std::uint64_t> encounter = {});

    /// A player's row.
    struct Row {
        std::size_t player = 0;
        OutcomeCounts counts;
        std::uint64_t wins_as_white = 0;
        std::uint64_t wins_as_black = 0;
        /// Sonneborn-Berger: the points of each opponent, times the points taken from it.
        double sonneborn_berger = 0;
        Rating rating;  ///< against all opponents together; its unit is the game
    };

    /// All rows, the best first: by share of the points, since players may have played differently many
    /// games; then by the games of the equals against each other, by Sonneborn-Berger, and as they are
    /// numbered.
    std::vector<Row> table() const;

    /// Games of a player against another, as the first one sees them.
    OutcomeCounts against(std::size_t player, std::size_t opponent) const;

    std::size_t players() const { return m_players; }
    std::uint64_t games() const { return m_games; }

private:
    /// The games of a player with White against one opponent, as the player sees them, and the pairs of both
    /// where the player has the lower number.
    using Meeting = OutcomeCounts;
    const Meeting& meeting(std::size_t white, std::size_t black) const {
        return m_meetings[white * m_players + black];
    }
    double points_against(std::size_t player, const std::vector<std::size_t>& opponents) const;

    std::size_t m_players;
    std::vector<Meeting> m_meetings;      // [white][black]
    std::vector<std::uint8_t> m_waiting;  // by encounter: 0, or 1 + half points of its first game
    std::uint64_t m_games = 0;
};

}  // namespace velmora
