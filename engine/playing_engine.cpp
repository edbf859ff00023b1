#include "engine/playing_engine.h"

#include <stdexcept>

#include "chess/legal_moves.h"

namespace velmora {

PlayingEngine::PlayingEngine() { m_position.new_game(); }

void PlayingEngine::process_lines() {
    const std::lock_guard lock(m_mutex);
    for (std::string line = next_line(); !line.empty(); line = next_line()) {
        const std::string translated = translate(std::move(line));
        post(translated);
        // A line that was blanked ends the round like an empty queue; what is left waits for the next line.
        if (translated.empty()) return;
    }
}

Move PlayingEngine::do_parse_move(const std::string& text) const { return m_position.convert_to_move(text); }

bool PlayingEngine::is_chess960() const {
    const auto option = variables().options.find("UCI_Chess960");
    return option != variables().options.end() && option->second.value == "true";
}

std::string PlayingEngine::coordinates(const Move& move) const { return move.to_string(is_chess960()); }

void PlayingEngine::start_search() {
    variables().clock.start_clock();
    variables().status = EngineStatus::thinking;
}

bool play_legal(ChessPosition& position, const std::string& text) {
    try {
        const auto move = find_legal(position, position.convert_to_move(text));
        if (move) position.do_move(*move);
        return move.has_value();
    } catch (const std::logic_error&) {
        return false;
    }
}

}  // namespace velmora
