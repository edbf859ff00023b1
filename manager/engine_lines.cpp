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

    const bool reviews = m_review.is_running() && seat == Seat::first;
    switch (said->word()) {
        case EngineWord::info:
            if (reviews) {
                m_review.note_search(said->rest());
            } else {
                info(seat, said->rest());
            }
            return {};
        case EngineWord::best_move:
            if (reviews) {
                m_review.take_answer(*said);
                return {};
            }
            return best_move(*said);
        case EngineWord::resign:
            return resign(seat);
        case EngineWord::offer_draw:
            return offer_draw(seat);
        case EngineWord::other:
            return {};
    }
    return {};
}

void EngineLines::info(Seat seat, std::string_view rest) {
    m_state.send(to_window::SearchOutput{side_of(*m_seats.engine(seat)), std::string(rest)});
    if (m_state.mode == ManagerMode::play) m_offers.note_search(rest);
}

GameEnd EngineLines::best_move(const EngineLine& line) {
    const bool playing = m_state.mode == ManagerMode::play || m_state.mode == ManagerMode::match;
    if (!playing || m_state.turn != turn_of(line.seat) || line.stopped) return {};

    const std::string token(line.move());
    const Side side = side_of(*m_seats.engine(line.seat));
    if (token.empty() || token == "0000" || token == "(none)") {
        std::cerr << "Current game:\n"
                  << m_state.position.fen() << '\n'
                  << m_state.position.moves_text() << '\n'
                  << "engine answered '" << token << "'" << std::endl;
        // Where the game is over there was nothing to answer.
        if (auto end = result(m_state.position)) return end;
        return loss_of(side, "illegal move: (none)");
    }
    m_state.pending = legal_move(m_state.position, parse_move(m_state.position, token));
    if (!m_state.pending.empty()) return {};
    return loss_of(side, "illegal move: " + token);
}

/// Between two engines nobody offers draws: a match has its rules.
GameEnd EngineLines::offer_draw(Seat seat) {
    const bool plays = m_state.mode == ManagerMode::play && m_state.turn != MoveTurn::none;
    return plays && seat == Seat::first ? m_offers.offered_by_engine() : GameEnd();
}

GameEnd EngineLines::resign(Seat seat) {
    // Between the games of a match it would count for the game after, and elsewhere once more for the same.
    if (m_review.is_running()) return {};
    const bool over = m_state.mode == ManagerMode::match ? !is_engine_turn(m_state.turn) : m_state.game_over;
    if (over) return {};
    m_state.pending = Move();
    const Side side = side_of(*m_seats.engine(seat));
    return loss_of(side, side == Side::white ? "white resigns" : "black resigns");
}

}  // namespace velmora
