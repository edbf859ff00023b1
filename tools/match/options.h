#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "matches/game_pool.h"
#include "matches/match_pgn.h"
#include "matches/match_settings.h"
#include "tournament/sprt.h"

namespace velmora {

/// A command line that can't be carried out; the text is for the user.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What the command line asks for, in the words that scripts for engine matches use.
struct MatchOptions {
    bool help = false;
    bool json = false;
    std::string resume;      ///< state to go on with; all else comes from there
    std::string state;       ///< state to begin
    std::string tournament;  ///< of the window's list, empty for none; the engines are its participants
    GamePool::Settings pool;
    ScheduleSettings schedule;
    OpeningSettings openings;
    MatchPgn::Settings pgn;
    std::string end_positions;  ///< file for the last positions, empty for none
    std::optional<Sprt> sprt;
    std::uint64_t rating_interval = 0;

    /// Reads the words behind the program's name. Throws UsageError, which names the nearest right word for a
    /// wrong one.
    static MatchOptions parse(const std::vector<std::string>& words);
    static std::string_view help_text();
    /// Whether the games of an opening come in pairs with changed colours.
    RatingUnit unit() const {
        return schedule.repeat && schedule.swap && schedule.games == 2 ? RatingUnit::pair : RatingUnit::game;
    }
};

/// Takes over the program and the settings of an installed engine. Throws UsageError when there is none.
void configure_installed(MatchEngineSetup& setup, const std::string& name);

/// Reads "40/60+0.6", "1:30+1" or "inf"; nothing for any other text. Minutes and seconds, and seconds.
std::optional<Level> level_of_time_control(std::string_view text);

}  // namespace velmora
