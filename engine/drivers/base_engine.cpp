#include "engine/drivers/base_engine.h"

#include "base/text.h"
#include "engine/process/engio.h"

namespace velmora {

void BaseEngine::attach(std::uint32_t id, EngineRecord* record, Engio* engio) {
    clear_queue();
    const std::lock_guard lock(m_mutex);
    m_engine_id = id;
    m_record = record;
    m_engio = engio;
}

bool BaseEngine::queue_line(ArrivedLine line) {
    // A full queue is worked off whatever its last line is: an engine that says nothing but "readyok" would
    // else have its lines dropped for ever.
    const bool waits = text::first_word(line.text) == "readyok";
    const std::lock_guard lock(m_queue_mutex);
    m_queue.push_back(std::move(line));
    // Only thinking output may go: at the first other line the dropping stops, however long the queue is.
    while (m_queue.size() > kept_lines && m_queue.front().text.find("info") != std::string::npos) {
        m_queue.pop_front();
    }
    const bool full = m_queue.size() >= most_lines;
    if (m_queue.size() > most_lines) m_queue.pop_back();
    return !waits || full;
}

ArrivedLine BaseEngine::next_line() {
    const std::lock_guard lock(m_queue_mutex);
    if (m_queue.empty()) return {};
    ArrivedLine line = std::move(m_queue.front());
    m_queue.pop_front();
    return line;
}

void BaseEngine::clear_queue() {
    const std::lock_guard lock(m_queue_mutex);
    m_queue.clear();
}

/// The options are walked, not the wanted values: an option of which the engine doesn't know must not be
/// added.
void BaseEngine::set_variables(const EngineVariables& wanted) {
    const std::lock_guard lock(m_mutex);
    EngineVariables& own = variables();
    own.uci_flag = wanted.uci_flag;
    own.name = wanted.name;
    own.filename = wanted.filename;
    own.player_name = wanted.player_name;
    own.elo = wanted.elo;
    own.handicap = wanted.handicap;
    for (auto& [name, option] : own.options) {
        const auto found = wanted.options.find(name);
        if (found != wanted.options.end()) option.value = found->second.value;
    }
}

bool BaseEngine::is_alive() const {
    const std::lock_guard lock(m_mutex);
    return m_engio != nullptr && m_engio->is_alive();
}

bool BaseEngine::has_crashed() const {
    const std::lock_guard lock(m_mutex);
    return m_engio != nullptr && m_engio->has_crashed();
}

void BaseEngine::send(std::string_view command) { m_engio->send(command); }

}  // namespace velmora
