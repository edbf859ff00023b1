#include "window/session/message_dispatcher.h"

#include <iostream>
#include <utility>
#include <variant>

#include "base/text.h"
#include "chess/moves/legal_moves.h"
#include "window/session/game_archive.h"

namespace velmora {

namespace {

/// The name of whoever has none, and of an engine that could not be loaded.
constexpr const char* unknown_name = "???";

std::string known_name(const std::string& name) { return name.empty() ? unknown_name : name; }

}  // namespace

void MessageDispatcher::process(const std::string& line) {
    const auto said = to_window::decode(line);
    if (!said) return;
    std::visit([this](const auto& of) { handle(of); }, *said);
    for (const auto& listener : m_listeners) listener(*said);
}

// ---------------------------------------------------------------------------------------------------------------
// A game as it is played

/// Whether the line is of the match that the person has chosen last, and has not left since.
bool MessageDispatcher::shows_match() const {
    return m_screen.frame.mode() == Mode::tournament && m_manager.referee_took_match();
}

bool MessageDispatcher::awaits_move() const {
    return shows_match() ||
           (m_screen.frame.mode() == Mode::human_computer && m_manager.referee_knows_position());
}

/// Whether the referee may begin a game or say from which position: in a match always; against an engine,
/// where it echoes the person's own "New game", until the first step in that game.
bool MessageDispatcher::awaits_start() const {
    if (shows_match()) return true;
    ChessPosition start;
    start.new_game();
    return m_screen.frame.mode() == Mode::human_computer && m_session.record().is_empty() &&
           m_session.position().fen() == start.fen();
}

/// Where a match is about to begin, the game that is still on the board may be the one that has ended; not
/// so when the person has changed its position.
bool MessageDispatcher::awaits_end() const {
    return m_screen.frame.mode() != Mode::tournament || m_manager.referee_took_match() ||
           m_manager.referee_knows_position();
}

void MessageDispatcher::handle(const to_window::PlayMove& line) {
    if (!awaits_move()) return;
    const ChessPosition& position = m_session.position();
    std::optional<Move> move;
    try {
        move = find_legal(position, position.convert_to_move(line.move));
    } catch (const std::logic_error& error) {
        std::cerr << error.what() << '\n';
    }
    if (!move) {
        std::cerr << "The referee's move " << line.move << " doesn't fit the position " << position.fen()
                  << '\n';
        return;
    }
    m_screen.clocks.start_clock(opposite(m_session.side_to_move()));
    m_session.play_for_engine(*move);
}

/// Belongs to the move ahead of it.
void MessageDispatcher::handle(const to_window::MoveTime& line) {
    if (awaits_move()) m_session.append_move_time(line.time);
}

void MessageDispatcher::handle(const to_window::TakeBack& /*line*/) {
    if (awaits_take_back()) m_session.take_back();
}

void MessageDispatcher::handle(const to_window::SetBoard& line) {
    if (!awaits_start()) return;
    std::string fen;
    text::WordReader fields(line.fen);
    for (int field = 0; field < 4; ++field) {
        fen += fields.word();
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
        m_manager.send(to_referee::SetBoard{m_session.position().fen()});
    }
}

void MessageDispatcher::handle(const to_window::NewGame& /*line*/) {
    if (!awaits_start()) return;
    m_session.hold_clocks(false);
    // A new game has the default texts, whatever an earlier tournament was called.
    m_session.new_game_without_names();
    m_screen.clocks.stop_clocks();
}

/// A game without a move isn't worth a place in the archive.
void MessageDispatcher::handle(const to_window::GameOver& line) {
    const std::string termination = std::exchange(m_termination, {});
    if (m_session.record().is_empty() || !awaits_end()) return;
    m_screen.clocks.stop_clocks();
    m_session.end_game(line, termination);
    // The archive has this one name, also when a tournament has set another event.
    const auto fault = GameArchive(std::string(default_event) + ".pgn").append(m_session.pgn());
    if (fault) std::cerr << "The game could not be added to the archive " << *fault << '\n';
}

/// "currmove" says which move is being searched, many times a second, and would push all else out of the
/// pane.
void MessageDispatcher::handle(const to_window::SearchOutput& line) {
    if (m_manager.is_leaving()) return;
    if (line.text.find("currmove") == std::string::npos)
        m_screen.notes.add_analysis(line.side, line.text + "\n");
    m_session.note_search(line.side, line.text);
}

// ---------------------------------------------------------------------------------------------------------------
// What is shown around the board

void MessageDispatcher::handle(const to_window::SetEvent& line) { m_session.set_event(line.event); }

void MessageDispatcher::handle(const to_window::SetSite& line) { m_session.set_site(line.site); }

void MessageDispatcher::handle(const to_window::SetRound& line) { m_session.set_round(line.round); }

void MessageDispatcher::handle(const to_window::SetLevel& line) { m_session.set_level(Level(line.level)); }

void MessageDispatcher::handle(const to_window::PlayerName& line) {
    m_session.set_player(line.side, known_name(line.name));
    m_engine.end_search();
    const auto& players = m_session.players();
    m_engine.set_title(players[Side::white].name + "  " + players[Side::black].name);
}

void MessageDispatcher::handle(const to_window::PlayerElo& line) { m_session.set_elo(line.side, line.elo); }

void MessageDispatcher::handle(const to_window::EngineName& line) {
    if (line.seat == Seat::first) m_engine.take_name(known_name(line.name));
}

void MessageDispatcher::handle(const to_window::SetArrow& line) {
    m_screen.board.set_arrow(line.from, line.to, line.color);
}

void MessageDispatcher::handle(const to_window::ClearArrows& /*line*/) { m_screen.board.clear_arrows(); }

// ---------------------------------------------------------------------------------------------------------------
// The program

void MessageDispatcher::handle(const to_window::TellUser& line) {
    // A message box would hold up the end.
    if (m_manager.is_leaving()) return;
    m_engine.end_search();
    m_dialogs.tell_user(text::underscores_to_blanks(line.headline),
                        text::underscores_to_blanks(line.details));
}

void MessageDispatcher::handle(const to_window::ResetMode& /*line*/) {
    m_screen.frame.select_mode(Mode::human_human);
}

/// The end of the match before would break off the one that has been chosen.
void MessageDispatcher::handle(const to_window::TournamentFinished& /*line*/) {
    if (m_manager.referee_took_match()) m_screen.frame.select_mode(Mode::human_human);
}

void MessageDispatcher::handle(const to_window::Quit& /*line*/) { m_screen.frame.close(); }

}  // namespace velmora
