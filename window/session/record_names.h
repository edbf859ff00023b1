#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "chess/board/side.h"
#include "engine/time/level.h"
#include "game/game.h"

namespace velmora {

inline constexpr const char* default_event = "Velmora battles";
inline constexpr const char* default_site = "the North Sea";

/// Who sits on one side of the board.
struct Player {
    std::string name = "?";
    std::string elo;
};

/// What the tags of a record that is begun say of the game: where it is played, and by whom.
///
/// Kept apart from the record, since it outlives it: the next game has the same players.
struct RecordNames {
    std::string event = default_event;
    std::string site = default_site;
    std::string round = "?";
    BySide<Player> players;
};

/// Today in UTC as a PGN date, month and day without leading zeros.
std::string pgn_date(std::chrono::system_clock::time_point now);

/// A time control as the PGN tag has it: "40/10+0.1", "300", "300+2", "-" for the fixed modes.
/// The forms are those of the PGN standard (9.6.1): moves and seconds of a period with a slash, seconds
/// alone for sudden death, an increment behind a plus sign, which may follow a period here, too.
std::string pgn_time_control(const Level& level);

/// Empties a record and gives it the seven tags, with today's date and without a result.
void begin_record(Game& record, const RecordNames& names);

/// The tags of a game that has ended: players with their ratings, and the time control.
void tag_ended_game(Game& record, const BySide<Player>& players, const Level& level);

}  // namespace velmora
