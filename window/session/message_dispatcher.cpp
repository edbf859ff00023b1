#include "window/session/message_dispatcher.h"

#include <algorithm>
#include <array>
#include <iostream>

#include "chess/moves/legal_moves.h"
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
        {"engine2name", &Self::ignore},
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
    return m_screen.frame.mode() == Mode::tournament ||
           (m_screen.frame.mode() == Mode::human_computer && m_manager.referee_knows_position());
}

/// Whether the referee may begin a game or say from which position: in a match always; against an engine,
/// where it echoes the person's own "New game", until the first step in that game.
bool MessageDispatcher::awaits_start() const {
    if (m_screen.frame.mode() == Mode::tournament) return true;
    ChessPosition start;
    start.new_game();
    return m_screen.frame.mode() == Mode::human_computer && m_session.record().is_empty() &&
           m_session.position().fen() == start.fen();
}

void MessageDispatcher::play_move(Rest& rest) {
    if (!awaits_move()) return;
    const ChessPosition& position = m_session.position();
    const std::string text(rest.word());
    std::optional<Move> move;
    try {
        move = find_legal(position, position.convert_to_move(text));
    } catch (const std::logic_error& error) {
        std::cerr << error.what() << '\n';
    }
    if (!move) {
        std::cerr << "The referee's move " << text << " doesn't fit the position " << position.fen() << '\n';
        return;
    }
    m_screen.clocks.start_clock(opposite(m_session.side_to_move()));
    m_session.play_for_engine(*move);
}

void MessageDispatcher::append_move_time(Rest& rest) { m_session.append_move_time(rest.word()); }

void MessageDispatcher::take_back(Rest& /*rest*/) {
    if (awaits_take_back()) m_session.take_back();
}

void MessageDispatcher::set_board(Rest& rest) {
    if (!awaits_start()) return;
    std::string fen;
    for (int field = 0; field < 4; ++field) {
        fen += rest.word();
        fen += ' ';
    }
    m_session.start_from(fen + "0 1");
    // The side is that of the new position, so the clock of the side not to move starts; the first move of an
    // engine puts it right.
    const Side side = m_session.side_to_move();
    m_session.attach_search(side);
    m_screen.clocks.start_clock(opposite(side));
    m_screen.notes.clear_analysis();
    // A start of Chess960 that crossed a position of ours is told again: the referee has gone on to ours.
    if (m_screen.frame.mode() == Mode::human_computer && !m_manager.referee_knows_position()) {
        m_manager.send("setboard " + m_session.position().fen());
    }
}

void MessageDispatcher::start_new_game(Rest& /*rest*/) {
    if (!awaits_start()) return;
    m_session.hold_clocks(false);
    // A new game has the default texts, whatever an earlier tournament was called.
    m_session.new_game_without_names();
    m_screen.clocks.stop_clocks();
}

void MessageDispatcher::end_game(std::string_view result, Rest& rest) {
    if (m_session.record().is_empty()) return;
    m_screen.clocks.stop_clocks();
    m_session.end_game(result, rest.rest());
    // The archive has this one name, also when a tournament has set another event.
    const auto fault = GameArchive(std::string(default_event) + ".pgn").append(m_session.pgn());
    if (fault) std::cerr << "The game could not be added to the archive " << *fault << '\n';
}

template <Side side>
void MessageDispatcher::search_output(Rest& rest) {
    const std::string line(rest.rest());
    if (m_manager.is_leaving()) return;
    if (line.find("currmove") == std::string::npos) m_screen.notes.add_analysis(side, line + "\n");
    m_session.note_search(side, line);
}

// ---------------------------------------------------------------------------------------------------------------
// What is shown around the board

void MessageDispatcher::set_event(Rest& rest) { m_session.set_event(text::trim_leading_blanks(rest.rest())); }

void MessageDispatcher::set_site(Rest& rest) { m_session.set_site(text::trim_leading_blanks(rest.rest())); }

void MessageDispatcher::set_round(Rest& rest) { m_session.set_round(rest.word()); }

void MessageDispatcher::set_level(Rest& rest) {
    std::string level(rest.word());
    level += ' ' + std::to_string(rest.integer<int>().value_or(0));
    level += ' ' + std::string(rest.word());
    level += ' ' + text::default_form(rest.real().value_or(0));
    m_session.set_level(Level(level));
}

template <Side side>
void MessageDispatcher::set_clock(Rest& rest) {
    m_screen.clocks.set_clock(side, rest.integer<int>().value_or(0) / 10);
}

std::string MessageDispatcher::clean_name(Rest& rest) {
    const auto name = text::trim_blanks(rest.rest());
    return name.empty() ? unknown_name : std::string(name);
}

template <Side side>
void MessageDispatcher::set_name(Rest& rest) {
    m_session.set_player(side, clean_name(rest));
    m_engine.end_search();
    const auto& players = m_session.players();
    m_engine.set_title(players[Side::white].name + "  " + players[Side::black].name);
}

template <Side side>
void MessageDispatcher::set_elo(Rest& rest) {
    m_session.set_elo(side, rest.word());
}

void MessageDispatcher::set_engine1_name(Rest& rest) { m_engine.take_name(clean_name(rest)); }

void MessageDispatcher::set_arrow(Rest& rest) {
    const Square from(rest.integer<int>().value_or(0));
    const Square to(rest.integer<int>().value_or(0));
    const auto color = rest.word();
    m_screen.board.set_arrow(from, to,
                             color.starts_with('r')   ? ArrowColor::red
                             : color.starts_with('g') ? ArrowColor::green
                                                      : ArrowColor::blue);
}

void MessageDispatcher::clear_arrows(Rest& /*rest*/) { m_screen.board.clear_arrows(); }

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
    if (rest.word() == "mode") m_screen.frame.select_mode(Mode::human_human);
}

void MessageDispatcher::finish_tournament(Rest& /*rest*/) { m_screen.frame.select_mode(Mode::human_human); }

void MessageDispatcher::close(Rest& /*rest*/) { m_screen.frame.close(); }

}  // namespace velmora
