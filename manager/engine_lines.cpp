#include "manager/engine_lines.h"

#include <iostream>
#include <string>

namespace velmora {

namespace {

/// Whether the line answers a search that was stopped: the driver says so behind the stamp of the arrival.
bool is_stopped_search(std::string_view line) { return line.ends_with(" stopped"); }

/// The word behind "bestmove"; a bare one is followed by the stamp of its arrival.
std::string_view move_word(text::WordReader& reader) {
    const auto word = reader.word();
    return word.starts_with("TS=") ? std::string_view() : word;
}

}  // namespace

GameEnd EngineLines::process(Seat seat, std::string_view line) {
    if (m_state.quit || m_seats.engine(seat) == nullptr) return {};
    if (m_state.log.is_on()) {
        const auto number = std::to_string(static_cast<int>(seat));
        m_state.log.write(" engine" + number + " -> " + std::string(line));
    }
    text::WordReader reader(line);
    reader.integer<int>();
    const auto instance_id = reader.integer<std::uint64_t>();
    // An engine that has been replaced may still have lines in the queue.
    if (!m_seats.is_current(seat, instance_id.value_or(0))) return {};

    const auto word = reader.word();
    if (word == "info") info(seat, reader.rest());
    if (word == "bestmove") return best_move(seat, reader);
    if (word == "resign") return resign(seat);
    return {};
}

void EngineLines::info(Seat seat, std::string_view rest) {
    const bool white = m_seats.engine(seat)->is_white();
    m_state.send(std::string(white ? "white_info" : "black_info").append(rest));
}

GameEnd EngineLines::best_move(Seat seat, text::WordReader reader) {
    const bool playing = m_state.mode == ManagerMode::play || m_state.mode == ManagerMode::match;
    if (!playing || m_state.turn != turn_of(seat) || is_stopped_search(reader.rest())) return {};

    const std::string token(move_word(reader));
    if (token.empty() || token == "0000" || token == "(none)") {
        std::cerr << "Current game:\n"
                  << m_state.position.fen() << '\n'
                  << m_state.position.moves_text() << '\n'
                  << "engine answered '" << token << "'" << std::endl;
        // Where the game is over there was nothing to answer.
        if (result(m_state.position) != game_goes_on) return by_the_rules;
        return loss_of(m_seats.engine(seat)->is_white(), "illegal move: (none)");
    }
    m_state.pending = legal_move(m_state.position, parse_move(m_state.position, token));
    if (!m_state.pending.empty()) return {};
    return loss_of(m_seats.engine(seat)->is_white(), "illegal move: " + token);
}

GameEnd EngineLines::resign(Seat seat) {
    // Between the games of a match it would count for the game after, and elsewhere once more for the same.
    const bool over = m_state.mode == ManagerMode::match ? !is_engine_turn(m_state.turn) : m_state.game_over;
    if (over) return {};
    m_state.pending = Move();
    return m_seats.engine(seat)->is_white() ? "0-1 {white resigns}" : "1-0 {black resigns}";
}

}  // namespace velmora
