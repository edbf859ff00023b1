#include "window/session/message_dispatcher.h"

#include <algorithm>
#include <array>
#include <iostream>

#include "chess/moves/legal_moves.h"
#include "game/annotations.h"
#include "game/game_tags.h"
#include "window/session/annotation.h"
#include "window/session/game_archive.h"

namespace velmora {

namespace {

/// The name of whoever has none, and of an engine that could not be loaded.
constexpr const char* unknown_name = "???";

}  // namespace

struct MessageDispatcher::Command {
    std::string_view word;
    void (MessageDispatcher::*handle)(Rest& rest);
};

const MessageDispatcher::Command* MessageDispatcher::find(std::string_view word) {
    using Self = MessageDispatcher;
    static constexpr auto commands = std::to_array<Command>({
        {"move", &Self::play_move},
        {"emt", &Self::append_move_time},
        {"takeback", &Self::take_back},
        {"setboard", &Self::set_board},
        {"shout", &Self::ignore},
        {"event", &Self::set_event},
        {"site", &Self::set_site},
        {"round", &Self::set_round},
        {"reset", &Self::reset_mode},
        {"level", &Self::set_level},
        {"wtime", &Self::set_clock<Side::white>},
        {"btime", &Self::set_clock<Side::black>},
        {"telluser", &Self::tell_user},
        {"set_arrow", &Self::set_arrow},
        {"clear_arrows", &Self::clear_arrows},
        {"engine1name", &Self::set_engine1_name},
        {"engine2name", &Self::set_engine2_name},
        {"whitename", &Self::set_name<Side::white>},
        {"blackname", &Self::set_name<Side::black>},
        {"WhiteElo", &Self::set_elo<Side::white>},
        {"BlackElo", &Self::set_elo<Side::black>},
        {"new", &Self::start_new_game},
        {"quit", &Self::close},
        {"tournament_finished", &Self::finish_tournament},
        {"white_info", &Self::search_output<Side::white>},
        {"black_info", &Self::search_output<Side::black>},
    });
    const auto* const found = std::find_if(commands.begin(), commands.end(),
                                           [word](const Command& row) { return row.word == word; });
    return found == commands.end() ? nullptr : found;
}

namespace {

bool is_result(std::string_view word) { return word == "1-0" || word == "0-1" || word == "1/2-1/2"; }

const char* name_tag(Side side) { return side == Side::white ? "White" : "Black"; }
const char* elo_tag(Side side) { return side == Side::white ? "WhiteElo" : "BlackElo"; }

}  // namespace

bool MessageDispatcher::knows(std::string_view word) { return is_result(word) || find(word) != nullptr; }

void MessageDispatcher::process(const std::string& line) {
    Rest rest(line);
    const auto word = rest.word();
    if (is_result(word)) {
        end_game(word, rest);
    } else if (const Command* command = find(word)) {
        (this->*command->handle)(rest);
    }
}

// ---------------------------------------------------------------------------------------------------------------
// A game as it is played

bool MessageDispatcher::awaits_move() const {
    return m_screen.mode() == Mode::tournament ||
           (m_screen.mode() == Mode::human_computer && m_manager.referee_knows_position());
}

/// Whether the referee may begin a game or say from which position: in a match always; against an engine,
/// where it echoes the person's own "New game", until the first step in that game.
bool MessageDispatcher::awaits_start() const {
    if (m_screen.mode() == Mode::tournament) return true;
    ChessPosition start;
    start.new_game();
    return m_screen.mode() == Mode::human_computer && m_desk.game.is_empty() &&
           m_desk.position.fen() == start.fen();
}

void MessageDispatcher::attach_annotation(Side side) {
    // A node that was there already keeps its comment when the engine had nothing to say.
    if (!m_desk.annotation[side].empty()) m_desk.game.set_comment(m_desk.annotation[side]);
    m_desk.annotation[side].clear();
    m_screen.start_clock(opposite(side));
}

void MessageDispatcher::play_move(Rest& rest) {
    if (!awaits_move()) return;
    const std::string text(rest.word());
    std::optional<Move> move;
    try {
        move = find_legal(m_desk.position, m_desk.position.convert_to_move(text));
    } catch (const std::logic_error& error) {
        std::cerr << error.what() << '\n';
    }
    if (!move) {
        std::cerr << "The referee's move " << text << " doesn't fit the position " << m_desk.position.fen()
                  << '\n';
        return;
    }
    const Side side = m_desk.side_to_move();
    // "Start thinking" may have crossed the engine's move on its way: then the engine has changed sides.
    if (!m_desk.engine_plays[side]) m_desk.set_engine_plays(side == Side::white, side == Side::black);
    m_comments.store();
    m_desk.play(*move);
    attach_annotation(side);
    m_desk.selected.reset();
    m_comments.show();
    m_screen.show_game();
    m_screen.show_position();
}

void MessageDispatcher::append_move_time(Rest& rest) {
    m_comments.store();
    m_desk.game.append_comment("[%time " + annotation_value(rest.word()) + "]");
    m_desk.game.set_comment(readable_comment(m_desk.game.comment()));
    m_comments.show();
    m_screen.show_game();
}

void MessageDispatcher::take_back(Rest& /*rest*/) {
    // The position may have been set by a FEN meanwhile; then there is no move to take back.
    if (!awaits_take_back() || m_desk.position.moves().empty()) return;
    m_comments.store();
    m_desk.position.undo_move();
    m_desk.game.back();
    m_desk.selected.reset();
    m_comments.show();
    m_screen.mark_clock(m_desk.side_to_move());
    m_screen.show_game();
    m_screen.show_position();
}

void MessageDispatcher::set_board(Rest& rest) {
    if (!awaits_start()) return;
    std::string fen;
    for (int field = 0; field < 4; ++field) {
        fen += rest.word();
        fen += ' ';
    }
    m_comments.store();
    m_desk.start_from(fen + "0 1");
    // The side is that of the new position, so the clock of the side not to move starts; the first move of an
    // engine puts it right.
    attach_annotation(m_desk.side_to_move());
    m_desk.selected.reset();
    m_comments.show();
    m_screen.clear_analysis();
    m_screen.show_game();
    m_screen.show_position();
    // A start of Chess960 that crossed a position of ours is told again: the referee has gone on to ours.
    if (m_screen.mode() == Mode::human_computer && !m_manager.referee_knows_position()) {
        m_manager.send("setboard " + m_desk.position.fen());
    }
}

void MessageDispatcher::start_new_game(Rest& /*rest*/) {
    if (!awaits_start()) return;
    m_desk.clocks_held = false;
    m_desk.selected.reset();
    m_desk.position.new_game();
    m_desk.clear_annotations();
    m_desk.reset_record();
    // A new game has the default texts, whatever an earlier tournament was called.
    m_desk.game.set_tag("Event", default_event);
    m_desk.game.set_tag("Site", default_site);
    m_comments.show();
    m_screen.show_game();
    m_screen.show_position();
    m_screen.set_clock_level(m_desk.level);
    m_screen.reset_clocks();
    m_screen.stop_clocks();
}

void MessageDispatcher::end_game(std::string_view result, Rest& rest) {
    if (m_desk.game.is_empty()) return;
    m_screen.stop_clocks();
    m_comments.store();
    Game& game = m_desk.game;
    for (const Side side : {Side::white, Side::black}) {
        game.set_tag(name_tag(side), tag_safe(m_desk.players[side].name));
    }
    game.set_tag("TimeControl", pgn_time_control(m_desk.level));
    for (const Side side : {Side::white, Side::black}) {
        if (!m_desk.players[side].elo.empty())
            game.set_tag(elo_tag(side), tag_safe(m_desk.players[side].elo));
    }
    std::string ending = ending_text(rest.rest(), result);
    game.set_result(ending);
    // The words of the comment may hold another result; the tag has the referee's.
    game.set_tag("Result", std::string(result));
    m_comments.show();
    m_screen.show_game();
    // The archive has this one name, also when a tournament has set another event.
    const auto fault = GameArchive(std::string(default_event) + ".pgn").append(game.pgn());
    if (fault) std::cerr << "The game could not be added to the archive " << *fault << '\n';
}

template <Side side>
void MessageDispatcher::search_output(Rest& rest) {
    const std::string line(rest.rest());
    if (m_manager.is_leaving()) return;
    if (line.find("currmove") == std::string::npos) m_screen.add_analysis(side, line + "\n");
    annotate(m_desk.annotation[side], line, side);
}

// ---------------------------------------------------------------------------------------------------------------
// What is shown around the board

void MessageDispatcher::set_event(Rest& rest) {
    m_desk.event = text::trim_leading_blanks(rest.rest());
    m_desk.game.set_tag("Event", tag_safe(m_desk.event));
}

void MessageDispatcher::set_site(Rest& rest) {
    m_desk.site = text::trim_leading_blanks(rest.rest());
    m_desk.game.set_tag("Site", tag_safe(m_desk.site));
}

void MessageDispatcher::set_round(Rest& rest) {
    m_desk.round = rest.word();
    m_desk.game.set_tag("Round", tag_safe(m_desk.round));
}

void MessageDispatcher::set_level(Rest& rest) {
    std::string level(rest.word());
    level += ' ' + std::to_string(rest.integer<int>().value_or(0));
    level += ' ' + std::string(rest.word());
    level += ' ' + text::default_form(rest.real().value_or(0));
    m_desk.level = Level(level);
    m_screen.set_clock_level(m_desk.level);
    m_screen.reset_clocks();
}

template <Side side>
void MessageDispatcher::set_clock(Rest& rest) {
    m_screen.set_clock(side, rest.integer<int>().value_or(0) / 10);
}

std::string MessageDispatcher::clean_name(Rest& rest) {
    const auto name = text::trim_blanks(rest.rest());
    return name.empty() ? unknown_name : std::string(name);
}

template <Side side>
void MessageDispatcher::set_name(Rest& rest) {
    m_desk.players[side] = {clean_name(rest), ""};
    m_engine.end_search();
    m_engine.set_title(m_desk.players[Side::white].name + "  " + m_desk.players[Side::black].name);
}

template <Side side>
void MessageDispatcher::set_elo(Rest& rest) {
    m_desk.players[side].elo = rest.word();
}

void MessageDispatcher::set_engine1_name(Rest& rest) { m_engine.take_name(clean_name(rest)); }

void MessageDispatcher::set_engine2_name(Rest& rest) { m_desk.engine2_name = clean_name(rest); }

void MessageDispatcher::set_arrow(Rest& rest) {
    const int from = rest.integer<int>().value_or(0);
    const int to = rest.integer<int>().value_or(0);
    const auto color = rest.word();
    m_screen.set_arrow(from, to, color.starts_with('r') ? 0 : color.starts_with('g') ? 1 : 2);
}

void MessageDispatcher::clear_arrows(Rest& /*rest*/) { m_screen.clear_arrows(); }

// ---------------------------------------------------------------------------------------------------------------
// The program

void MessageDispatcher::tell_user(Rest& rest) {
    // A message box would hold up the end.
    if (m_manager.is_leaving()) return;
    const std::string headline = text::underscores_to_blanks(rest.word());
    m_engine.end_search();
    m_dialogs.tell_user(headline, text::underscores_to_blanks(rest.rest()));
}

void MessageDispatcher::reset_mode(Rest& rest) {
    if (rest.word() == "mode") m_screen.select_mode(Mode::human_human);
}

void MessageDispatcher::finish_tournament(Rest& /*rest*/) { m_screen.select_mode(Mode::human_human); }

void MessageDispatcher::close(Rest& /*rest*/) { m_screen.close(); }

}  // namespace velmora
