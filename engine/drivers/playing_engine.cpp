#include "engine/drivers/playing_engine.h"

#include <stdexcept>
#include <utility>

#include "chess/moves/legal_moves.h"

namespace velmora {

PlayingEngine::PlayingEngine() { m_position.new_game(); }

void PlayingEngine::process_lines() {
    const std::lock_guard lock(m_mutex);
    for (std::string line = next_line(); !line.empty(); line = next_line()) {
        const std::string translated = translate(std::move(line));
        post(translated);
        if (is_at_rest()) come_to_rest();
        // A line that was blanked ends the round like an empty queue; what is left waits for the next line.
        if (translated.empty()) return;
    }
}

/// Whether the engine neither searches nor owes the move of a search that was stopped.
bool PlayingEngine::is_at_rest() { return variables().status == EngineStatus::idle && !m_stopped.owed(); }

void PlayingEngine::do_set_option(const std::string& name) {
    if (is_at_rest()) return send_all_options(name);
    if (!variables().options.contains(name)) return;
    m_waiting_options.insert(name);
    make_way_for_options();
}

void PlayingEngine::send_waiting_options() {
    if (m_waiting_options.empty()) return;
    const auto names = std::exchange(m_waiting_options, {});
    send_chosen_options([&names](const Option& option) { return names.contains(option.name); });
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
