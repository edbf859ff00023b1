#pragma once

#include <cstdint>
#include <string>

#include "engine/time/game_clock.h"
#include "engine/time/level.h"

namespace velmora {

enum class EngineStatus : std::uint32_t { idle = 1, thinking = 2, pondering = 3 };

/// How an engine stands in the present game: its colour, its time and what it is doing.
///
/// Written by two threads, the referee's that tells the engine to go and the reader's that takes its move;
/// it has no lock of its own because whoever touches it holds the driver's mutex already.
struct PlayState {
    Level level;                     ///< as the user set it, without the handicap
    GameClock clock;                 ///< this engine's clock, with the handicap
    std::int64_t opponent_time = 0;  ///< the other side's remaining milliseconds
    EngineStatus status = EngineStatus::idle;
    bool is_white = true;

    /// Forgets the last process's game: all but the colour gets its initial value.
    /// The colour belongs to the seat: a process that is replaced in the middle of a game goes on with it.
    void reset_for_load();

    /// Stores the level and sets the clock from it. A handicap between 0 and 100 per cent takes that part off
    /// the clock's base and increment; any other text takes nothing.
    /// `level` keeps what the user set, since it is compared with what an engine was told last; the
    /// handicap shortens the clock alone. 0 and 100 per cent and what lies beyond would leave the engine
    /// without a handicap or without any time, so they count as none.
    void set_level(const Level& new_level, const std::string& handicap);
};

}  // namespace velmora
