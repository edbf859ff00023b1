#include "engine/drivers/xboard_engine.h"

#include <iostream>
#include <stdexcept>
#include <utility>

#include "base/text.h"
#include "chess/moves/legal_moves.h"
#include "chess/notation/san_move.h"
#include "engine/drivers/xboard_lines.h"

namespace velmora {

namespace {

constexpr auto normal_start = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";

/// The position a move ago; the position itself at the start of a game.
ChessPosition a_move_ago(ChessPosition position) {
    if (!position.moves().empty()) position.undo_move();
    return position;
}

bool is_result(std::string_view word) { return word == "1-0" || word == "0-1" || word == "1/2-1/2"; }

bool is_digit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

XboardEngine::XboardEngine() { m_previous_position.new_game(); }

/// In this protocol the engine decides by itself on what it ponders; it is only allowed to or not.
void XboardEngine::do_set_ponder(bool on) { send(on ? "hard" : "easy"); }

/// "analyze" is another mode with other rules of its own. The report is all that happens.
void XboardEngine::do_go_infinite() { std::clog << "XboardEngine::go_infinite() not implemented\n"; }

std::string XboardEngine::move_text(const ChessPosition& before, const Move& move) const {
    const std::string text = variables().features.san ? SanMove(before, move).san() : coordinates(move);
    return variables().features.usermove ? "usermove " + text : text;
}

/// Notes that the engine now has the driver's position.
void XboardEngine::engine_was_set_up() {
    m_previous_position = m_position;
    m_previous_is_certain = true;
    m_result_said = false;
    ++m_game;
}

/// Has the engine begin another game and wait. "new" lifts a limit of the search's depth, nothing else that
/// was set.
void XboardEngine::send_new() {
    send("new");
    send_force();
    const auto mode = m_sent_level.level_t();
    if (mode == LevelType::fixed_depth || mode == LevelType::fixed_nodes) {
        send(xboard::level_command(m_sent_level));
    }
}

/// An engine whose own game has ended makes no move in a position that is set up behind that end.
void XboardEngine::send_new_if_game_over() {
    if (m_result_said || legal_moves(m_previous_position).empty()) send_new();
}

void XboardEngine::send_force() {
    send("force");
    m_play = Play::force_mode;
}

void XboardEngine::send_go() {
    send("go");
    m_play = Play::by_itself;
}

void XboardEngine::do_new_game() {
    // Without this feature the process is replaced instead.
    if (!variables().features.reuse) return;
    do_stop();
    state().clock.restart();
    m_position.new_game();
    engine_was_set_up();
    send("new");
    send_force();
    for (const char* command : {"easy", "post"}) send(command);
    send(xboard::level_command(m_sent_level));
}

/// The usual case is one move more than the engine knows, which go() sends as a move; here only another
/// game, or a move that was taken back, needs setting up.
void XboardEngine::do_set_position(const ChessPosition& position) {
    m_position = position;
    if (a_move_ago(m_position) == m_previous_position) return;
    // Without "setboard" the engine keeps the game that it has until go() finds another way.
    if (!variables().features.setboard) return;
    send_new_if_game_over();
    send("setboard " + m_position.start_fen());
    send_force();
    for (const char* command : {"easy", "post"}) send(command);
    ChessPosition start;
    start.set_fen(m_position.start_fen());
    send_moves_from(start);
    engine_was_set_up();
}

void XboardEngine::send_moves_from(ChessPosition scratch) {
    for (const Move& move : m_position.moves()) {
        send(move_text(scratch, move));
        scratch.do_move(move);
    }
}

void XboardEngine::send_clocks() {
    if (!variables().features.time) return;
    // In hundredths of a second, cut towards zero: an engine must not believe in time that it hasn't.
    send("time " + std::to_string(state().clock.time_left() / 10));
    send("otim " + std::to_string(state().opponent_time / 10));
}

void XboardEngine::do_go() {
    state().status = EngineStatus::thinking;
    m_search_stopped = false;
    send_waiting_options();
    if (state().level != m_sent_level) {
        m_sent_level = state().level;
        send(xboard::level_command(m_sent_level));
    }
    bring_position_to_engine();
    start_search();
}

/// Brings the engine's game to the driver's position and lets the engine move there.
void XboardEngine::bring_position_to_engine() {
    if (m_previous_is_certain && m_position == m_previous_position) {
        send_clocks();
        send_go();
    } else if (m_previous_is_certain && a_move_ago(m_position) == m_previous_position) {
        send_last_move();
    } else {
        send_whole_position();
        send_clocks();
        send_go();
    }
}

/// The engine lacks one move. On move it answers by itself unless it is in force mode.
void XboardEngine::send_last_move() {
    if (m_play == Play::unknown) send_force();
    send_clocks();
    send(move_text(m_previous_position, m_position.last_move()));
    m_previous_position = m_position;
    // A second "go" would have an engine that has answered meanwhile play the other side, too.
    if (m_play == Play::force_mode) send_go();
}

void XboardEngine::send_whole_position() {
    const XboardFeatures& features = variables().features;
    if (features.setboard) {
        send_new_if_game_over();
        send("setboard " + m_position.fen());
    } else if (m_position.start_fen() == normal_start) {
        if (features.reuse) send("new");
        send_force();
        ChessPosition start;
        start.new_game();
        send_moves_from(start);
    } else {
        send_edit_commands();
    }
    engine_was_set_up();
}

void XboardEngine::send_edit_commands() {
    if (m_position.side_to_move() == Side::white) {
        // White is on move in a new game alone, whoever was in the last one.
        send_new();
    } else {
        // The edit mode cannot say who is to move: a dummy move of White's hands it to Black.
        send("new");
        send_force();
        send("a2a3");
    }
    for (const std::string& command : xboard::edit_commands(m_position)) send(command);
}

void XboardEngine::do_stop() {
    trace(" <- XboardEngine::stop()");
    if (state().status != EngineStatus::thinking) return;
    // The engine makes its move, and only that sets the status.
    if (!std::exchange(m_search_stopped, true)) {
        m_stopped.add(m_game);
        m_previous_is_certain = false;
    }
    send("?");
}

/// Not noted as stopped: the answer is the one that is waited for.
void XboardEngine::do_move_now() {
    if (state().status == EngineStatus::thinking && !m_search_stopped) send("?");
}

std::string XboardEngine::option_command(const Option& option) const {
    if (option.name == "xboard_memory") return "memory " + option.value;
    if (option.name == "xboard_threads") return "cores " + option.value;
    const std::string value = option.value == "true" ? "1" : option.value == "false" ? "0" : option.value;
    return "option " + option.name + (value.empty() ? "" : "=" + value);
}

DriverMessage XboardEngine::translate(ArrivedLine arrived) {
    const std::string& line = arrived.text;
    text::WordReader reader(line);
    const auto word = reader.word();
    if (word == "move") return take_move(reader.word());
    // An engine that says its move twice is taken at its first word.
    if (const auto move = xboard::old_style_move(line); state().status == EngineStatus::thinking && move) {
        return take_move(*move);
    }
    if (word == "pong") return {std::move(arrived.text), arrived.arrival};
    // An engine that refuses a move has lost the game like one that gives up.
    if (line.find("resign") != std::string::npos || word == "Illegal") {
        state().status = EngineStatus::idle;
        return {"resign"};
    }
    // At the start of a game it is the word on the last one.
    if (is_result(word)) m_result_said = !m_previous_position.moves().empty();
    if (word.starts_with('#') || is_result(word)) return {};
    if (word.empty() || !is_digit(word.front())) return {std::move(arrived.text), arrived.arrival};
    return {xboard::thinking_as_info(line), arrived.arrival};
}

/// The legal move of the engine's word; nothing when it cannot be read or is not legal.
std::optional<Move> XboardEngine::read_move(const ChessPosition& position, std::string_view word) const {
    const bool san = variables().features.san;
    const std::string text = xboard::normalised_castling(word, position.side_to_move() == Side::white, san);
    try {
        return find_legal(position, san ? SanMove(position, text) : position.convert_to_move(text));
    } catch (const std::logic_error&) {
        return std::nullopt;
    }
}

/// The referee gets the word as it was where it can't be read: it is the one to say that the move is
/// illegal.
DriverMessage XboardEngine::take_move(std::string_view word) {
    if (const auto game = m_stopped.pay()) {
        follow_stopped_move(word, *game);
        return {.text = "bestmove " + std::string(word), .stopped = true};
    }
    state().status = EngineStatus::idle;
    const auto move = read_move(m_position, word);
    // Such a line has no arrival stamp, so the engine gets nothing back for the time in transit.
    state().clock.move_and_stop_clock(0);
    if (!move) return {"bestmove " + std::string(word)};
    if (m_position == m_previous_position) m_previous_position.do_move(*move);
    m_position.do_move(*move);
    return {"bestmove " + move->to_string(false)};
}

/// The move that a stopped engine still made: it happened in the engine's game, and nowhere else.
void XboardEngine::follow_stopped_move(std::string_view word, std::uint32_t game) {
    if (m_search_stopped) state().status = EngineStatus::idle;
    if (game != m_game || m_previous_is_certain) return;
    const auto move = read_move(m_previous_position, word);
    if (!move) return;
    if (m_position == m_previous_position) m_position.do_move(*move);
    m_previous_position.do_move(*move);
    m_previous_is_certain = true;
}

}  // namespace velmora
