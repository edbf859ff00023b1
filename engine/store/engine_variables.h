#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "engine/store/option.h"
#include "engine/time/game_clock.h"
#include "engine/time/level.h"

namespace velmora {

/// The protocols; the numbers travel in the "load" command.
enum class Protocol : std::uint32_t { autodetect = 0, uci = 1, xboard_v1 = 2, xboard_v2 = 3 };

enum class EngineStatus : std::uint32_t { idle = 1, thinking = 2, pondering = 3 };

/// What an xboard engine can do and wants, with the values that hold until it says otherwise.
struct XboardFeatures {
    bool ping = false;
    bool setboard = false;
    bool san = false;
    bool usermove = false;
    bool time = false;
    bool reuse = false;
    bool colors = true;
    bool nps = true;
    bool debug = false;
    bool smp = false;
    bool memory = false;

    bool operator==(const XboardFeatures&) const = default;
};

/// All that is known of one engine: identity, protocol, time control, clock, features and options.
struct EngineVariables {
    Level level;                     ///< as the user set it, without the handicap
    GameClock clock;                 ///< this engine's clock, with the handicap
    std::int64_t opponent_time = 0;  ///< the other side's remaining milliseconds
    EngineStatus status = EngineStatus::idle;
    bool is_white = true;
    bool uci_flag = false;  ///< recognised as UCI

    std::string name;         ///< under which the engine is installed
    std::string filename;     ///< path of the program
    std::string player_name;  ///< for the PGN tags, preferred to engine_name
    std::string elo;          ///< for the PGN tags, free text
    std::string handicap;     ///< time handicap in per cent, free text
    Protocol protocol = Protocol::autodetect;

    XboardFeatures features;
    std::string egt = "0";                  ///< value of the xboard feature of that name
    std::string engine_name = "NoNameYet";  ///< as the engine reports it
    std::string author;                     ///< as the engine reports it
    Options options;

    /// Bytes of a reported name that are kept: it goes into titles and tags.
    static constexpr std::size_t longest_name = 255;

    /// The reported name, cut at a character, which also becomes `name` while that is empty.
    void set_engine_name(const std::string& reported);

    /// Forgets what the last process said: level and clock at the default, protocol, options, features,
    /// opponent_time and egt at their initial values. Names, Elo and handicap stay.
    void reset_for_load();

    /// Stores the level and sets the clock from it. A handicap between 0 and 100 per cent takes that part off
    /// the clock's base and increment; any other text in `handicap` takes nothing.
    void set_level(const Level& new_level);

    /// Inserts under the option's name, or overwrites all but key and `changed`.
    void add_option(const Option& option);
};

}  // namespace velmora
