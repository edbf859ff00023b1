#include "engine/drivers/playing_engine.h"

#include <algorithm>
#include <stdexcept>
#include <utility>
#include <vector>

#include "channel/engine_line.h"
#include "chess/moves/legal_moves.h"
#include "engine/process/engio.h"
#include "engine/time/wall_clock.h"

namespace velmora {

PlayingEngine::PlayingEngine() { m_position.new_game(); }

void PlayingEngine::set_ponder(bool on) {
    const std::lock_guard lock(m_mutex);
    do_set_ponder(on);
}

void PlayingEngine::new_game() {
    const std::lock_guard lock(m_mutex);
    do_new_game();
}

void PlayingEngine::set_position(const ChessPosition& position) {
    const std::lock_guard lock(m_mutex);
    do_set_position(position);
}

void PlayingEngine::go() {
    const std::lock_guard lock(m_mutex);
    do_go();
}

void PlayingEngine::go_infinite() {
    const std::lock_guard lock(m_mutex);
    do_go_infinite();
}

void PlayingEngine::stop() {
    const std::lock_guard lock(m_mutex);
    do_stop();
}

void PlayingEngine::move_now() {
    const std::lock_guard lock(m_mutex);
    do_move_now();
}

void PlayingEngine::offer_draw() {
    const std::lock_guard lock(m_mutex);
    do_offer_draw();
}

Move PlayingEngine::parse_move(const std::string& text) const {
    const std::lock_guard lock(m_mutex);
    return m_position.convert_to_move(text);
}

void PlayingEngine::receive_line(ArrivedLine line) {
    if (queue_line(std::move(line))) process_lines();
}

/// Posts the lines, translated, until the queue is empty or an empty line is met.
void PlayingEngine::process_lines() {
    const std::lock_guard lock(m_mutex);
    for (ArrivedLine line = next_line(); !line.text.empty(); line = next_line()) {
        const DriverMessage message = translate(std::move(line));
        post(message);
        if (is_at_rest()) come_to_rest();
        // A line that was blanked ends the round like an empty queue; what is left waits for the next line.
        // The reader comes back with the next line anyway, and the order of the lines isn't changed by it.
        if (message.text.empty()) return;
    }
}

/// Hands a message to the referee. What makes it act is urgent, search output may wait for the lines behind
/// it, and all else goes out for the referee's log alone, while that is kept.
void PlayingEngine::post(const DriverMessage& message) {
    const EngineLine line{static_cast<Seat>(engine_id()), m_instance_id, message.text, message.arrival,
                          message.stopped};
    const EngineWord word = line.word();
    if (!is_decisive(word) && word != EngineWord::info && !m_debug) return;
    m_held = std::max(m_held, is_decisive(word) ? Held::urgent : Held::can_wait);
    if (m_manager != nullptr) m_manager->put_command(encode(line));
}

void PlayingEngine::flush() {
    m_held = Held::nothing;
    CommandSink* manager = nullptr;
    {
        const std::lock_guard lock(m_mutex);
        manager = m_manager;
    }
    if (manager != nullptr) manager->flush();
}

/// Whether the engine neither searches nor owes the move of a search that was stopped.
bool PlayingEngine::is_at_rest() { return state().status == EngineStatus::idle && !m_stopped.owed(); }

void PlayingEngine::send_options() {
    const std::lock_guard lock(m_mutex);
    send_all_options();
}

void PlayingEngine::set_option(const std::string& name, const std::string& value) {
    const std::lock_guard lock(m_mutex);
    const auto option = variables().options.find(name);
    if (option != variables().options.end()) option->second.value = value;
    if (is_at_rest()) return send_all_options(name);
    if (option == variables().options.end()) return;
    m_waiting_options.insert(name);
    make_way_for_options();
}

void PlayingEngine::send_waiting_options() {
    if (m_waiting_options.empty()) return;
    const auto names = std::exchange(m_waiting_options, {});
    send_chosen_options([&names](const Option& option) { return names.contains(option.name); });
}

/// Sends all options as send_options() does, and that of the name in any case.
void PlayingEngine::send_all_options(const std::string& name) {
    send_chosen_options([&name](const Option& option) {
        return option.default_value != "<empty>" || option.value != "<empty>" || option.name == name;
    });
}

void PlayingEngine::send_chosen_options(const std::function<bool(const Option&)>& wanted) {
    std::vector<std::string> commands;
    for (const auto& [name, option] : variables().options) {
        if (wanted(option)) commands.push_back(option_command(option));
    }
    engio().send_lines(std::vector<std::string_view>(commands.begin(), commands.end()));
}

void PlayingEngine::send_together(std::initializer_list<std::string_view> commands) {
    engio().send_lines({commands.begin(), commands.size()});
}

void PlayingEngine::set_debug(bool on) {
    const std::lock_guard lock(m_mutex);
    m_debug = on;
}

void PlayingEngine::set_debug_stream(LogFile* stream) {
    const std::lock_guard lock(m_mutex);
    m_debug_stream = stream;
}

void PlayingEngine::set_manager(CommandSink* manager) {
    const std::lock_guard lock(m_mutex);
    m_manager = manager;
}

void PlayingEngine::set_instance_id(std::uint64_t instance_id) {
    const std::lock_guard lock(m_mutex);
    m_instance_id = instance_id;
}

void PlayingEngine::trace(std::string_view text, std::string_view more) const {
    if (!m_debug || m_debug_stream == nullptr) return;
    m_debug_stream->write(wall_log_stamp() + " engine" + std::to_string(engine_id()) +
                          std::string(text).append(more));
}

bool PlayingEngine::is_chess960() const {
    const auto option = variables().options.find("UCI_Chess960");
    return option != variables().options.end() && option->second.value == "true";
}

std::string PlayingEngine::coordinates(const Move& move) const { return move.to_string(is_chess960()); }

void PlayingEngine::start_search() {
    state().clock.start_clock();
    state().status = EngineStatus::thinking;
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
