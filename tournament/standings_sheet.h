#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tournament/standings.h"

namespace velmora {

/// A tournament's standings in words and numbers, as a window shows them and as text for the clipboard.
struct StandingsSheet {
    /// A player's line.
    struct Line {
        std::string name;
        std::string points;      ///< "2.5"
        std::string games;       ///< "4"
        std::string white_wins;  ///< won with White
        std::string black_wins;  ///< won with Black
        std::string draws;
        std::string losses;
        std::string elo;        ///< against the field, "+35"; "+inf" and "-inf" at all or none of the points
        std::string error;      ///< of elo, "80"; empty where the results bear none
        std::string tie_break;  ///< Sonneborn-Berger, "3.25"
        /// Points of the games played against the player of each line, "1.5/2"; empty without games.
        std::vector<std::string> against;

        bool operator==(const Line&) const = default;
    };

    std::string title;              ///< the tournament's event
    std::vector<Line> lines;        ///< best first
    std::vector<std::string> open;  ///< the next games without a result, "7: Alpha - Beta"; not all of many
    std::size_t open_count = 0;
    std::size_t game_count = 0;  ///< of the schedule

    /// "12 of 20 games played"; empty for a schedule without games.
    std::string progress() const;

    bool operator==(const StandingsSheet&) const = default;
};

/// The lines of players with the given names, in the order of the table.
std::vector<StandingsSheet::Line> standings_lines(const Standings& standings,
                                                  const std::vector<std::string>& names);

/// The sheet as text for a fixed-width font, its columns apart by blanks.
std::string text_of(const StandingsSheet& sheet);

}  // namespace velmora
