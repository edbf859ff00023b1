#pragma once

#include <cstdint>
#include <string>

#include "engine/time/game_clock.h"
#include "engine/time/level.h"

namespace velmora {

enum class EngineStatus : std::uint32_t { idle = 1, thinking = 2, pondering = 3 };

/// How an engine stands in the present game: its colour, its time and what it is doing.
struct PlayState {
    Level level;                     ///< as the user set it, without the handicap
    GameClock clock;                 ///< this engine's clock, with the handicap
    std::int64_t opponent_time = 0;  ///< the other side's remaining milliseconds
    EngineStatus status = EngineStatus::idle;
    bool is_white = true;

    /// Forgets the last process's game: all but the colour gets its initial value.
    void reset_for_load();

    /// Stores the level and sets the clock from it. A handicap between 0 and 100 per cent takes that part off
    /// the clock's base and increment; any other text takes nothing.
    void set_level(const Level& new_level, const std::string& handicap);
};

}  // namespace velmora
