#include "engine/drivers/base_engine.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "base/text.h"
#include "engine/process/engio.h"
#include "engine/time/wall_clock.h"

namespace velmora {

namespace {

/// Whether a line that begins so makes the referee act. All else that an engine says is passed on or noted,
/// and may wait for the lines behind it.
bool is_decisive(std::string_view word) { return word == "bestmove" || word == "resign"; }

}  // namespace

void BaseEngine::set_ponder(bool on) {
    const std::lock_guard lock(m_mutex);
    do_set_ponder(on);
}

void BaseEngine::new_game() {
    const std::lock_guard lock(m_mutex);
    do_new_game();
}

void BaseEngine::set_position(const ChessPosition& position) {
    const std::lock_guard lock(m_mutex);
    do_set_position(position);
}

void BaseEngine::go() {
    const std::lock_guard lock(m_mutex);
    do_go();
}

void BaseEngine::go_infinite() {
    const std::lock_guard lock(m_mutex);
    do_go_infinite();
}

void BaseEngine::stop() {
    const std::lock_guard lock(m_mutex);
    do_stop();
}

Move BaseEngine::parse_move(const std::string& text) const {
    const std::lock_guard lock(m_mutex);
    return do_parse_move(text);
}

void BaseEngine::receive_line(std::string line) {
    const bool waits = text::first_word(line) == "readyok";
    bool full = false;
    {
        const std::lock_guard lock(m_queue_mutex);
        m_queue.push_back(std::move(line));
        // Only thinking output may go: at the first other line the dropping stops, however long the queue is.
        while (m_queue.size() > kept_lines && m_queue.front().find("info") != std::string::npos) {
            m_queue.pop_front();
        }
        full = m_queue.size() >= most_lines;
        if (m_queue.size() > most_lines) m_queue.pop_back();
    }
    if (!waits || full) process_lines();
}

void BaseEngine::flush() {
    m_held = Held::nothing;
    CommandSink* manager = nullptr;
    {
        const std::lock_guard lock(m_mutex);
        manager = m_manager;
    }
    if (manager != nullptr) manager->flush();
}

std::string BaseEngine::next_line() {
    const std::lock_guard lock(m_queue_mutex);
    if (m_queue.empty()) return {};
    std::string line = std::move(m_queue.front());
    m_queue.pop_front();
    return line;
}

void BaseEngine::clear_queue() {
    const std::lock_guard lock(m_queue_mutex);
    m_queue.clear();
}

void BaseEngine::attach(std::uint32_t id, EngineVariables* variables, Engio* engio) {
    clear_queue();
    const std::lock_guard lock(m_mutex);
    m_engine_id = id;
    m_variables = variables;
    m_engio = engio;
    m_variables->status = EngineStatus::idle;
}

void BaseEngine::set_variables(const EngineVariables& variables) {
    Options merged;
    {
        const std::lock_guard lock(m_mutex);
        m_variables->uci_flag = variables.uci_flag;
        m_variables->name = variables.name;
        m_variables->filename = variables.filename;
        m_variables->player_name = variables.player_name;
        m_variables->elo = variables.elo;
        m_variables->handicap = variables.handicap;
        merged = m_variables->options;
    }
    for (auto& [name, option] : merged) {
        const auto wanted = variables.options.find(name);
        if (wanted != variables.options.end()) option.value = wanted->second.value;
    }
    send_options(merged);
}

void BaseEngine::send_options(const Options& options) {
    const std::lock_guard lock(m_mutex);
    m_variables->options = options;
    send_all_options();
}

void BaseEngine::set_option(const std::string& name, const std::string& value) {
    const std::lock_guard lock(m_mutex);
    const auto option = m_variables->options.find(name);
    if (option != m_variables->options.end()) option->second.value = value;
    do_set_option(name);
}

void BaseEngine::send_all_options(const std::string& name) {
    send_chosen_options([&name](const Option& option) {
        return option.default_value != "<empty>" || option.value != "<empty>" || option.name == name;
    });
}

void BaseEngine::send_chosen_options(const std::function<bool(const Option&)>& wanted) {
    std::vector<std::string> commands;
    for (const auto& [name, option] : m_variables->options) {
        if (wanted(option)) commands.push_back(option_command(option));
    }
    m_engio->send_lines(std::vector<std::string_view>(commands.begin(), commands.end()));
}

std::string BaseEngine::option_command(const Option& option) const {
    if (is_uci()) {
        return "setoption name " + option.name + (option.value.empty() ? "" : " value " + option.value);
    }
    if (option.name == "xboard_memory") return "memory " + option.value;
    if (option.name == "xboard_threads") return "cores " + option.value;
    const std::string value = option.value == "true" ? "1" : option.value == "false" ? "0" : option.value;
    return "option " + option.name + (value.empty() ? "" : "=" + value);
}

bool BaseEngine::is_alive() const {
    const std::lock_guard lock(m_mutex);
    return m_engio != nullptr && m_engio->is_alive();
}

bool BaseEngine::has_crashed() const {
    const std::lock_guard lock(m_mutex);
    return m_engio != nullptr && m_engio->has_crashed();
}

void BaseEngine::set_debug(bool on) {
    const std::lock_guard lock(m_mutex);
    m_debug = on;
}

void BaseEngine::set_debug_stream(LogFile* stream) {
    const std::lock_guard lock(m_mutex);
    m_debug_stream = stream;
}

void BaseEngine::set_manager(CommandSink* manager) {
    const std::lock_guard lock(m_mutex);
    m_manager = manager;
}

void BaseEngine::set_instance_id(std::uint64_t instance_id) {
    const std::lock_guard lock(m_mutex);
    m_instance_id = instance_id;
}

void BaseEngine::send(std::string_view command) { m_engio->send(command); }

void BaseEngine::send_together(std::initializer_list<std::string_view> commands) {
    m_engio->send_lines({commands.begin(), commands.size()});
}

void BaseEngine::post(std::string_view line) {
    const auto word = text::first_word(line);
    if (!is_decisive(word) && word != "info" && !m_debug) return;
    m_held = std::max(m_held, is_decisive(word) ? Held::urgent : Held::can_wait);
    if (m_manager == nullptr) return;
    std::string command = std::to_string(m_engine_id);
    command += ' ';
    command += std::to_string(m_instance_id);
    command += ' ';
    command += line;
    m_manager->put_command(command);
}

void BaseEngine::trace(std::string_view text, std::string_view more) const {
    if (!m_debug || m_debug_stream == nullptr) return;
    m_debug_stream->write(wall_log_stamp() + " engine" + std::to_string(m_engine_id) +
                          std::string(text).append(more));
}

}  // namespace velmora
