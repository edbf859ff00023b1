#include "engine/drivers/uci_engine.h"

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <utility>

#include "base/text.h"

namespace velmora {

/// The start position always goes out as FEN and the moves behind it, though "startpos" would be shorter:
/// the engine needs the moves to see repetitions, and one form is enough for all games.
std::string UciEngine::position_text() const {
    constexpr std::size_t longest_move = 6;  // with its blank
    const std::string start = m_position.start_fen();
    const auto moves = m_position.moves();
    std::string text;
    text.reserve(start.size() + longest_move * moves.size() + 20);
    text += "position fen " + start + " moves";
    const bool chess960 = is_chess960();
    for (const Move& move : moves) {
        text += ' ';
        text += move.to_string(chess960);
    }
    return text;
}

std::string UciEngine::time_text(Overstepped overstepped) const {
    const PlayState& engine = state();
    const std::int64_t least = overstepped == Overstepped::raised_to_1 ? 1 : INT64_MIN;
    const std::string own = std::to_string(std::max<std::int64_t>(engine.clock.time_left(), least));
    const std::string other = std::to_string(std::max(engine.opponent_time, least));
    const std::string increment = std::to_string(engine.level.inc_ms());
    std::string text = "go wtime " + (engine.is_white ? own : other) + " btime " +
                       (engine.is_white ? other : own) + " winc " + increment + " binc " + increment;
    // The two blanks are part of the command's fixed form.
    const auto moves_to_go = engine.clock.moves_to_go();
    if (moves_to_go > 0) text += "  movestogo " + std::to_string(moves_to_go);
    return text;
}

std::string UciEngine::go_text() const {
    const Level& level = state().level;
    switch (level.level_t()) {
        case LevelType::fixed_depth:
            return "go depth " + std::to_string(level.depth());
        case LevelType::fixed_nodes:
            return "go nodes " + std::to_string(level.nodes());
        case LevelType::fixed_movetime:
            return "go movetime " + std::to_string(level.movetime());
        case LevelType::sudden_death:
        case LevelType::sessions:
            break;
    }
    return time_text(Overstepped::raised_to_1);
}

/// Nobody waits for the answer to the "isready": a pipe keeps the order, so the position has been read when
/// the "go" is.
void UciEngine::do_go() {
    if (state().status == EngineStatus::thinking) {
        throw std::logic_error("UciEngine::go():   engine already thinking");
    }
    if (state().status == EngineStatus::pondering) {
        if (ponder_hit()) return;
        stop_search();
        trace(" <- UciEngine::go()    stop");
    }
    m_interrupted = Interrupted::nothing;
    m_analyses = false;
    send_waiting_options();
    const std::string position = position_text();
    const std::string command = go_text();
    send_together({position, "isready", command});
    trace(" <- UciEngine::go()    ", position);
    start_search();
    trace(" start_clock()  time=", std::to_string(state().clock.time_left()));
    trace(" <- UciEngine::go()    ", command);
}

/// Goes on with the ponder search when the opponent has played what the engine expected.
bool UciEngine::ponder_hit() {
    if (coordinates(m_position.last_move()) != m_ponder_move) return false;
    m_analyses = false;
    send("ponderhit");
    trace(" <- UciEngine::go()    ponderhit");
    start_search();
    return true;
}

void UciEngine::do_go_infinite() {
    m_interrupted = Interrupted::nothing;
    m_analyses = true;
    send_waiting_options();
    const std::string position = position_text();
    send_together({position, "go infinite"});
    trace(" <- UciEngine::go_infinite()    ", position);
    state().status = EngineStatus::thinking;
    trace(" <- UciEngine::go_infinite()    go infinite");
}

/// Starts a search on the opponent's time, in the position after the expected reply. REQUIRES: an idle
/// engine.
void UciEngine::goponder() {
    if (state().status != EngineStatus::idle) {
        throw std::logic_error("UciEngine::goponder() while engine not idle");
    }
    send_waiting_options();
    // The clock numbers go out whatever the level's mode is, and also below 1.
    send_together({position_text(), time_text(Overstepped::as_it_is) + " ponder"});
    state().status = EngineStatus::pondering;
}

void UciEngine::stop_search() {
    send("stop");
    m_stopped.add(0);
}

/// Nothing is sent: the position goes out with the search that needs it. A search that was interrupted for
/// an option's sake isn't taken up again in another position than its own.
void UciEngine::do_set_position(const ChessPosition& position) {
    m_position = position;
    m_interrupted = Interrupted::nothing;
}

/// A search for a move on the clock is left alone: to end it would cost the engine its move. It takes the
/// option when it has moved.
void UciEngine::make_way_for_options() {
    EngineStatus& status = state().status;
    const bool ponders = status == EngineStatus::pondering;
    if (!ponders && (status == EngineStatus::idle || !m_analyses)) return;
    stop_search();
    status = EngineStatus::idle;
    m_interrupted = ponders ? Interrupted::pondering : Interrupted::analysis;
}

void UciEngine::come_to_rest() {
    PlayingEngine::come_to_rest();
    const auto interrupted = std::exchange(m_interrupted, Interrupted::nothing);
    if (interrupted == Interrupted::analysis) do_go_infinite();
    if (interrupted == Interrupted::pondering) goponder();
}

void UciEngine::do_stop() {
    m_interrupted = Interrupted::nothing;
    if (state().status == EngineStatus::idle) return;
    stop_search();
    state().status = EngineStatus::idle;
    trace(" <- UciEngine::stop()");
}

/// Not noted as stopped: the answer is the one that is waited for.
void UciEngine::do_move_now() {
    if (state().status == EngineStatus::thinking && !m_analyses) send("stop");
}

void UciEngine::do_new_game() {
    do_stop();
    state().clock.restart();
    m_position.new_game();
    send("ucinewgame");
    send("isready");
}

std::string UciEngine::option_command(const Option& option) const {
    return "setoption name " + option.name + (option.value.empty() ? "" : " value " + option.value);
}

DriverMessage UciEngine::translate(ArrivedLine line) {
    bool stopped = false;
    if (text::first_word(line.text) == "bestmove") {
        stopped = m_stopped.pay().has_value();
        if (!stopped) take_bestmove(line);
    }
    return {std::move(line.text), line.arrival, stopped};
}

/// The clock is stopped here, on the reader's thread, so that the time which the line spends on the
/// referee's queue is never the engine's.
void UciEngine::take_bestmove(const ArrivedLine& line) {
    PlayState& engine = state();
    engine.clock.move_and_stop_clock(line.arrival.value_or(0));
    trace(" move_and_stop_clock()  time=", std::to_string(engine.clock.time_left()));
    engine.status = EngineStatus::idle;
    m_ponder_move.clear();
    text::WordReader reader(line.text);
    reader.word();
    const std::string move(reader.word());
    if (m_ponder_enabled && reader.word() == "ponder") ponder_on(move, std::string(reader.word()));
}

/// Ponders on the reply. Moves that are not legal are the referee's business: the search is left out then.
void UciEngine::ponder_on(const std::string& move, const std::string& reply) {
    ChessPosition expected = m_position;
    if (!play_legal(expected, move) || !play_legal(expected, reply)) return;
    m_position = std::move(expected);
    m_ponder_move = reply;
    goponder();
}

}  // namespace velmora
