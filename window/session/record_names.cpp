#include "window/session/record_names.h"

#include "base/text.h"
#include "game/game_tags.h"

namespace velmora {

namespace {

const char* name_tag(Side side) { return side == Side::white ? "White" : "Black"; }
const char* elo_tag(Side side) { return side == Side::white ? "WhiteElo" : "BlackElo"; }

void tag_player_names(Game& record, const BySide<Player>& players) {
    for (const Side side : {Side::white, Side::black}) {
        record.set_tag(name_tag(side), tag_safe(players[side].name));
    }
}

}  // namespace

std::string pgn_date(std::chrono::system_clock::time_point now) {
    const std::chrono::year_month_day date(std::chrono::floor<std::chrono::days>(now));
    return std::to_string(static_cast<int>(date.year())) + "." +
           std::to_string(static_cast<unsigned>(date.month())) + "." +
           std::to_string(static_cast<unsigned>(date.day()));
}

std::string pgn_time_control(const Level& level) {
    const auto seconds = [](std::int64_t milliseconds) {
        return text::default_form(static_cast<double>(milliseconds) / 1000);
    };
    std::string result;
    switch (level.level_t()) {
        case LevelType::sessions:
            result = std::to_string(level.moves()) + "/";
            break;
        case LevelType::sudden_death:
            break;
        default:
            return "-";
    }
    result += seconds(level.base_ms());
    if (level.inc_ms() != 0) result += "+" + seconds(level.inc_ms());
    return result;
}

void begin_record(Game& record, const RecordNames& names) {
    record.reset();
    record.set_tag("Event", tag_safe(names.event));
    record.set_tag("Site", tag_safe(names.site));
    record.set_tag("Date", pgn_date(std::chrono::system_clock::now()));
    record.set_tag("Round", tag_safe(names.round));
    tag_player_names(record, names.players);
    record.set_tag("Result", "*");
}

void tag_ended_game(Game& record, const BySide<Player>& players, const Level& level) {
    tag_player_names(record, players);
    record.set_tag("TimeControl", pgn_time_control(level));
    for (const Side side : {Side::white, Side::black}) {
        if (!players[side].elo.empty()) record.set_tag(elo_tag(side), tag_safe(players[side].elo));
    }
}

}  // namespace velmora
