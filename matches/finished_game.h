#pragma once

#include <string>

#include "chess/board/side.h"
#include "matches/engine_game.h"
#include "matches/schedule.h"

namespace velmora {

/// A game of the schedule with all that came of it.
struct FinishedGame {
    ScheduledGame scheduled;
    BySide<std::string> names;
    PlayedGame game;

    /// "1-0", "0-1", "1/2-1/2", "*" for one that was broken off.
    std::string result() const {
        return game.outcome ? std::string(result_token(game.outcome->result)) : "*";
    }
    std::string reason() const { return game.outcome ? game.outcome->reason : "No result"; }
};

}  // namespace velmora
