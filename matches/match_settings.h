#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "engine/process/child_process.h"
#include "engine/store/engine_identity.h"
#include "engine/time/level.h"

namespace velmora {

/// One engine of a match, as it is to be started and to play.
struct MatchEngineSetup {
    enum class Restart { automatic, on, off };  ///< automatic: where the protocol asks for it

    std::string name;  ///< in the record; empty for what the engine calls itself
    ProgramCall call;
    Protocol protocol = Protocol::autodetect;
    Level level;
    bool endless = false;  ///< a clock that is shown to the engine and not kept
    std::chrono::milliseconds time_margin{0};
    Restart restart = Restart::automatic;
    std::vector<std::pair<std::string, std::string>> options;  ///< name and value
};

/// Which games are played, and in which colours.
struct ScheduleSettings {
    enum class Kind { round_robin, gauntlet };
    Kind kind = Kind::round_robin;
    std::uint64_t rounds = 1;
    std::uint64_t games = 1;  ///< of each pairing in a round
    bool repeat = false;      ///< the games of a pairing in a round share an opening
    bool swap = true;         ///< colours change from game to game of a pairing
    std::uint64_t shard = 0, shards = 1;
};

struct OpeningSettings {
    std::string file;
    bool random = false;
    std::uint64_t seed = 0;
    std::optional<std::size_t> plies;  ///< at most
    std::size_t start = 1;             ///< number of the first opening, from 1
};

struct AdjudicationSettings {
    std::uint32_t draw_move = 0, draw_count = 0;  ///< full moves; a count of 0 adjudicates nothing
    std::int32_t draw_score = 0;                  ///< centipawns either way
    std::uint32_t resign_count = 0;
    std::int32_t resign_score = 0;  ///< centipawns
    bool resign_two_sided = false;
    std::uint32_t most_moves = 0;  ///< full moves, 0 for no limit
};

}  // namespace velmora
