#include "manager/engine_lines.h"

#include <iostream>
#include <string>

namespace velmora {

GameEnd EngineLines::process(Seat seat, std::string_view line) {
    if (m_state.quit || m_seats.engine(seat) == nullptr) return {};
    if (m_state.log.is_on()) {
        const auto number = std::to_string(static_cast<int>(seat));
        m_state.log.write(" engine" + number + " -> " + std::string(line));
    }
    const auto said = decode_engine_line(line);
    // An engine that has been replaced may still have lines in the queue.
    if (!said || !m_seats.is_current(seat, said->instance_id)) return {};

    switch (said->word()) {
        case EngineWord::info:
            info(seat, said->rest());
            return {};
        case EngineWord::best_move:
            return best_move(*said);
        case EngineWord::resign:
            return resign(seat);
        case EngineWord::other:
            return {};
    }
    return {};
}

void EngineLines::info(Seat seat, std::string_view rest) {
    const bool white = m_seats.engine(seat)->is_white();
    m_state.send(std::string(white ? "white_info" : "black_info").append(rest));
}

GameEnd EngineLines::best_move(const EngineLine& line) {
    const bool playing = m_state.mode == ManagerMode::play || m_state.mode == ManagerMode::match;
    if (!playing || m_state.turn != turn_of(line.seat) || line.stopped) return {};

    const std::string token(line.move());
    const bool white = m_seats.engine(line.seat)->is_white();
    if (token.empty() || token == "0000" || token == "(none)") {
        std::cerr << "Current game:\n"
                  << m_state.position.fen() << '\n'
                  << m_state.position.moves_text() << '\n'
                  << "engine answered '" << token << "'" << std::endl;
        // Where the game is over there was nothing to answer.
        if (result(m_state.position) != game_goes_on) return by_the_rules;
        return loss_of(white, "illegal move: (none)");
    }
    m_state.pending = legal_move(m_state.position, parse_move(m_state.position, token));
    if (!m_state.pending.empty()) return {};
    return loss_of(white, "illegal move: " + token);
}

GameEnd EngineLines::resign(Seat seat) {
    // Between the games of a match it would count for the game after, and elsewhere once more for the same.
    const bool over = m_state.mode == ManagerMode::match ? !is_engine_turn(m_state.turn) : m_state.game_over;
    if (over) return {};
    m_state.pending = Move();
    return m_seats.engine(seat)->is_white() ? "0-1 {white resigns}" : "1-0 {black resigns}";
}

}  // namespace velmora
