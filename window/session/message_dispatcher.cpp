#include "window/session/message_dispatcher.h"

#include <iostream>
#include <variant>

#include "base/text.h"
#include "chess/moves/legal_moves.h"
#include "game/annotations.h"
#include "game/game_tags.h"
#include "window/session/annotation.h"
#include "window/session/game_archive.h"

namespace velmora {

namespace {

/// The name of whoever has none, and of an engine that could not be loaded.
constexpr const char* unknown_name = "???";

std::string known_name(const std::string& name) { return name.empty() ? unknown_name : name; }

const char* name_tag(Side side) { return side == Side::white ? "White" : "Black"; }
const char* elo_tag(Side side) { return side == Side::white ? "WhiteElo" : "BlackElo"; }

}  // namespace

void MessageDispatcher::process(const std::string& line) {
    const auto said = to_window::decode(line);
    if (said) std::visit([this](const auto& of) { handle(of); }, *said);
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

void MessageDispatcher::handle(const to_window::PlayMove& line) {
    if (!awaits_move()) return;
    std::optional<Move> move;
    try {
        move = find_legal(m_desk.position, m_desk.position.convert_to_move(line.move));
    } catch (const std::logic_error& error) {
        std::cerr << error.what() << '\n';
    }
    if (!move) {
        std::cerr << "The referee's move " << line.move << " doesn't fit the position "
                  << m_desk.position.fen() << '\n';
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

void MessageDispatcher::handle(const to_window::MoveTime& line) {
    m_comments.store();
    m_desk.game.append_comment("[%time " + annotation_value(line.time) + "]");
    m_desk.game.set_comment(readable_comment(m_desk.game.comment()));
    m_comments.show();
    m_screen.show_game();
}

void MessageDispatcher::handle(const to_window::TakeBack& /*line*/) {
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

void MessageDispatcher::handle(const to_window::SetBoard& line) {
    if (!awaits_start()) return;
    std::string fen;
    text::WordReader fields(line.fen);
    for (int field = 0; field < 4; ++field) {
        fen += fields.word();
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
        m_manager.send(to_referee::SetBoard{m_desk.position.fen()});
    }
}

void MessageDispatcher::handle(const to_window::NewGame& /*line*/) {
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

void MessageDispatcher::handle(const to_window::GameOver& line) {
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
    const std::string_view result = result_token(line.result);
    std::string ending = ending_text(line.reason, result);
    game.set_result(ending);
    // The words of the comment may hold another result; the tag has the referee's.
    game.set_tag("Result", std::string(result));
    m_comments.show();
    m_screen.show_game();
    // The archive has this one name, also when a tournament has set another event.
    const auto fault = GameArchive(std::string(default_event) + ".pgn").append(game.pgn());
    if (fault) std::cerr << "The game could not be added to the archive " << *fault << '\n';
}

void MessageDispatcher::handle(const to_window::SearchOutput& line) {
    if (m_manager.is_leaving()) return;
    if (line.text.find("currmove") == std::string::npos) m_screen.add_analysis(line.side, line.text + "\n");
    annotate(m_desk.annotation[line.side], line.text, line.side);
}

// ---------------------------------------------------------------------------------------------------------------
// What is shown around the board

void MessageDispatcher::handle(const to_window::SetEvent& line) {
    m_desk.event = line.event;
    m_desk.game.set_tag("Event", tag_safe(m_desk.event));
}

void MessageDispatcher::handle(const to_window::SetSite& line) {
    m_desk.site = line.site;
    m_desk.game.set_tag("Site", tag_safe(m_desk.site));
}

void MessageDispatcher::handle(const to_window::SetRound& line) {
    m_desk.round = line.round;
    m_desk.game.set_tag("Round", tag_safe(m_desk.round));
}

void MessageDispatcher::handle(const to_window::SetLevel& line) {
    m_desk.level = Level(line.level);
    m_screen.set_clock_level(m_desk.level);
    m_screen.reset_clocks();
}

void MessageDispatcher::handle(const to_window::SetClock& line) {
    m_screen.set_clock(line.side, line.ms / 10);
}

void MessageDispatcher::handle(const to_window::PlayerName& line) {
    m_desk.players[line.side] = {known_name(line.name), ""};
    m_engine.end_search();
    m_engine.set_title(m_desk.players[Side::white].name + "  " + m_desk.players[Side::black].name);
}

void MessageDispatcher::handle(const to_window::PlayerElo& line) { m_desk.players[line.side].elo = line.elo; }

void MessageDispatcher::handle(const to_window::EngineName& line) {
    if (line.seat == Seat::first) {
        m_engine.take_name(known_name(line.name));
    } else {
        m_desk.engine2_name = known_name(line.name);
    }
}

void MessageDispatcher::handle(const to_window::SetArrow& line) {
    m_screen.set_arrow(line.from.value(), line.to.value(), static_cast<int>(line.color));
}

void MessageDispatcher::handle(const to_window::ClearArrows& /*line*/) { m_screen.clear_arrows(); }

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
    m_screen.select_mode(Mode::human_human);
}

void MessageDispatcher::handle(const to_window::TournamentFinished& /*line*/) {
    m_screen.select_mode(Mode::human_human);
}

void MessageDispatcher::handle(const to_window::Quit& /*line*/) { m_screen.close(); }

}  // namespace velmora
