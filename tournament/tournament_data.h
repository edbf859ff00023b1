#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/store/engine_variables.h"
#include "engine/time/level.h"

namespace velmora {

/// What a schedule is made of; the numbers are fixed.
enum class TournamentType : std::int32_t { match = 0, gauntlet = 1, round_robin = 2 };

/// The words of the types; the index is the type's number.
constexpr std::array<std::string_view, 3> tournament_type_words{"match", "gauntlet", "roundrobin"};

/// One engine of a tournament.
struct TournamentParticipant {
    std::int32_t id = 0;  ///< 1-based place in the list of participants
    std::string name;     ///< as in the list of installed engines
    std::int32_t elo = 2600;
    std::int32_t handicap = 0;  ///< per cent

    bool operator==(const TournamentParticipant&) const = default;
};

/// The participant that an installed engine makes, without an id. Its free texts of Elo and handicap count as
/// 2600 and 0 when they do not begin with a number.
TournamentParticipant participant_of(const EngineVariables& engine);

/// One game of the schedule. A game with `number` 0 is none.
///
/// It holds copies of its participants, so that whoever plays it needs nothing else of the tournament.
struct TournamentGame {
    std::int32_t number = 0;  ///< running number from 1, the file's order
    std::int32_t round = 0;
    std::int32_t sub_round = 0;  ///< game inside the round; 0 when the round has a single game
    TournamentParticipant white;
    TournamentParticipant black;
    std::string result = "*";  ///< one word; "*" until the game has been played

    /// "2", or "2.7" when the round has several games: for tags and lists.
    std::string round_label() const;

    bool operator==(const TournamentGame&) const = default;
};

/// All that a tournament's file holds.
///
/// Plain values that file, schedule and dialog share, without the rules of Tournament.
struct TournamentData {
    std::vector<TournamentParticipant> participants;
    std::vector<TournamentGame> games;
    std::int32_t rounds = 0;
    std::int32_t game_count = 0;  ///< the number of the last game
    TournamentType type = TournamentType::match;
    bool both_colors = false;       ///< every opening is played twice
    bool random_order = true;       ///< openings are drawn at random from the book
    bool ignore_time_loss = false;  ///< a clock below -500 ms does not lose the game
    std::string opening_book;       ///< path of a PGN or EPD file, empty for none
    std::string event = "Velmora Battles";
    std::string site = "?";
    Level level;

    /// Appends a participant and gives it its id.
    void add_participant(TournamentParticipant participant);
};

}  // namespace velmora
