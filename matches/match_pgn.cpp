#include "matches/match_pgn.h"

#include <array>
#include <cstdio>
#include <ctime>
#include <stdexcept>
#include <string_view>

#include "base/atomic_file.h"
#include "base/text.h"
#include "game/game.h"
#include "game/torn_tail.h"
#include "openings/eco.h"

namespace velmora {

namespace {

constexpr std::array<std::string_view, 7> termination_words{
    "normal",    "adjudication",       "time forfeit", "illegal move",
    "abandoned", "stalled connection", "unterminated"};

std::string seconds_text(std::chrono::nanoseconds time) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.3fs", std::chrono::duration<double>(time).count());
    return text.data();
}

/// "+0.35/12 0.053s" from the view of who moved, as tools for engine matches write it.
std::string move_comment(const PlayedMove& move, Side side) {
    if (!move.score) return seconds_text(move.time);
    std::array<char, 32> score{};
    const bool own = (side == Side::white);
    if (move.score->is_mate()) {
        const bool wins = (move.score->kind == Evaluation::Kind::white_mates) == own;
        std::snprintf(score.data(), score.size(), "%cM%d", wins ? '+' : '-', move.score->value);
    } else {
        const double pawns = (own ? 1 : -1) * move.score->value / 100.0;
        std::snprintf(score.data(), score.size(), "%+.2f", pawns);
    }
    return std::string(score.data()) + '/' + std::to_string(move.depth) + ' ' + seconds_text(move.time);
}

/// PGN's field of a time control (PGN standard, 9.6.1).
std::string time_control(const MatchEngineSetup& setup) {
    const Level& level = setup.level;
    if (setup.endless || level.base_ms() == Level::endless_ms) return "-";
    const auto seconds = [](std::int32_t ms) { return text::default_form(ms / 1000.0); };
    std::string text = seconds(level.base_ms());
    if (level.moves() > 0) text = std::to_string(level.moves()) + '/' + text;
    if (level.inc_ms() > 0) text += '+' + seconds(level.inc_ms());
    return text;
}

std::string today() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    std::array<char, 16> text{};
    std::strftime(text.data(), text.size(), "%Y.%m.%d", &local);
    return text.data();
}

void add_moves(Game& game, const FinishedGame& finished, bool comments) {
    const auto moves = finished.game.end.moves();
    const std::size_t opening = finished.game.start.moves().size();
    std::string code;
    for (std::size_t i = 0; i < moves.size(); ++i) {
        const Side side = game.side_to_move();
        game.add_move(moves[i]);
        if (auto named = Eco().code(game.key()); !named.empty()) code = std::move(named);
        if (!comments) continue;
        std::string comment = i < opening ? "book" : move_comment(finished.game.moves[i - opening], side);
        if (i + 1 == moves.size()) comment += ", " + finished.reason();
        game.set_comment(text::record_text(comment, 255));
    }
    if (comments && !code.empty()) game.set_tag("ECO", code);
}

}  // namespace

std::string MatchPgn::text(const FinishedGame& finished) const {
    const auto& scheduled = finished.scheduled;
    Game game;
    game.set_tag("Event", tag_safe(m_settings.event));
    game.set_tag("Site", tag_safe(m_settings.site));
    game.set_tag("Date", today());
    game.set_tag("Round", std::to_string(scheduled.round));
    game.set_tag("White", tag_safe(finished.names.white));
    game.set_tag("Black", tag_safe(finished.names.black));
    if (m_settings.chess960) game.set_tag("Variant", "Chess960");
    const std::string start = finished.game.start.start_fen();
    if (start != GameTags::standard_fen) {
        game.set_tag("SetUp", "1");
        game.set_tag("FEN", start);
    }
    add_moves(game, finished, !m_settings.minimal);
    game.set_tag("Result", finished.result());
    if (!m_settings.minimal) {
        game.set_tag("PlyCount", std::to_string(finished.game.end.moves().size()));
        game.set_tag("Termination", termination_words[static_cast<std::size_t>(finished.game.termination)]);
        const auto& white = m_engines[scheduled.white];
        const auto& black = m_engines[scheduled.black];
        const std::string control = time_control(white);
        if (control == time_control(black)) {
            game.set_tag("TimeControl", control);
        } else {
            game.set_tag("WhiteTimeControl", control);
            game.set_tag("BlackTimeControl", time_control(black));
        }
    }
    if (finished.game.outcome) game.add_end_game(finished.result());
    return game.pgn();
}

bool MatchPgn::add(const FinishedGame& finished) {
    if (m_settings.path.empty()) return true;
    m_waiting.push_back({finished.scheduled.number, text(finished)});
    return write_rest();
}

bool MatchPgn::write_rest() {
    if (m_waiting.empty()) return true;
    std::string all;
    for (const auto& game : m_waiting) all += game.text;
    try {
        append_to_file_behind(
            m_settings.path, [this] { return closing_of_torn_tail(m_settings.path); }, all);
    } catch (const std::runtime_error& error) {
        m_fault = error.what();
        return false;
    }
    m_waiting.clear();
    return true;
}

std::vector<std::uint64_t> MatchPgn::unsaved() const {
    std::vector<std::uint64_t> numbers;
    for (const auto& game : m_waiting) numbers.push_back(game.number);
    return numbers;
}

}  // namespace velmora
