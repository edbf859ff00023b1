#include "window/session/game_desk.h"

#include <stdexcept>

#include "base/text.h"
#include "game/game_tags.h"
#include "window/session/position_line.h"

namespace velmora {

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

GameDesk::GameDesk() {
    position.new_game();
    reset_record();
}

void GameDesk::reset_record() {
    game.reset();
    const auto& white = players[Side::white].name;
    const auto& black = players[Side::black].name;
    game.set_tag("Event", tag_safe(event));
    game.set_tag("Site", tag_safe(site));
    game.set_tag("Date", pgn_date(std::chrono::system_clock::now()));
    game.set_tag("Round", tag_safe(round));
    game.set_tag("White", tag_safe(white));
    game.set_tag("Black", tag_safe(black));
    game.set_tag("Result", "*");
}

void GameDesk::clear_annotations() {
    annotation[Side::white].clear();
    annotation[Side::black].clear();
}

void GameDesk::play(const Move& move) {
    game.add_move(move);
    position.do_move(move);
    tag_opening();
}

void GameDesk::tag_opening() { tag_opening(position.key()); }

void GameDesk::tag_opening_of_main_line() {
    Game reader = game;
    reader.to_start();
    try {
        while (!reader.forward().empty()) tag_opening(reader.key());
    } catch (const std::logic_error&) {
        // A move that can't be played ends what can be named.
    }
}

void GameDesk::tag_opening(std::uint64_t key) {
    const std::string code(eco.code(key));
    if (code.empty()) return;
    game.set_tag("ECO", code);
    game.set_tag("Opening", std::string(eco.opening(key)));
}

void GameDesk::start_from(const std::string& fen) {
    // Moves that were played from another start don't fit this one; the tags stay.
    const GameTags tags = game.tags();
    game.reset();
    for (const std::string& name : tags.order()) game.set_tag(name, tags.get(name));
    game.set_tag("SetUp", "1");
    game.set_tag("FEN", fen);
    position.set_fen(fen);
}

bool GameDesk::can_go_back() const { return game.current() != 0; }

const MoveSectionElement* GameDesk::next_move() const {
    const auto& tree = game.tree();
    const auto next = tree.node(game.current()).child_at(0);
    return next > 0 && tree.node(next).type == ElementType::move ? &tree.node(next) : nullptr;
}

bool GameDesk::can_go_forward() const { return next_move() != nullptr; }

Move GameDesk::last_move() const {
    const bool in_step = game.fen() == position.fen();
    return in_step ? game.last_move() : position.last_move();
}

std::string GameDesk::last_move_text() const {
    const auto& node = game.tree().node(game.current());
    if (node.type != ElementType::move) return {};
    return (node.color == Side::white ? "White: " : "Black: ") + node.san;
}

std::string GameDesk::next_move_text() const {
    const MoveSectionElement* const next = next_move();
    if (!next || next->san.empty()) return "The move";
    return std::to_string(next->move_number) + (next->color == Side::white ? ". " : "... ") + next->san;
}

std::string GameDesk::epd_text() const {
    const std::string epd = position.epd();
    const auto operations = epd_operations(loaded_line);
    const bool still_there = text::join(first_fields(loaded_line)) == epd;
    return still_there && !operations.empty() ? epd + " " + std::string(operations) : epd;
}

}  // namespace velmora
