#include "tools/velmora_console/console.h"

#include <utility>

#include "channel/sender.h"
#include "channel/to_referee.h"
#include "channel/to_window.h"

namespace velmora {

void Console::take_input(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto end = bytes.find('\n');
        m_partial_line.append(bytes.substr(0, end));
        if (end == std::string_view::npos) return;
        command(m_partial_line);
        m_partial_line.clear();
        bytes.remove_prefix(end + 1);
    }
}

void Console::end_input() {
    if (!m_partial_line.empty()) command(m_partial_line);
    m_partial_line.clear();
    const std::lock_guard lock(m_mutex);
    m_input_ended = true;
    // Changes nothing; when it has been taken, all ahead of it has been carried out.
    send(to_referee::encode(to_referee::WakeUp()));
}

void Console::wake_up() {
    const std::lock_guard lock(m_mutex);
    if (m_match_running || m_engine_searches) send(to_referee::encode(to_referee::WakeUp()));
}

void Console::command(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    const auto effects = to_referee::effects_of(line);
    const std::lock_guard lock(m_mutex);
    if (effects.starts_match) m_match_running = true;
    if (effects.leaves_match) m_match_running = m_engine_searches = false;
    if (effects.starts_search) m_engine_searches = true;
    send(line);
}

/// REQUIRES: m_mutex is held.
void Console::send(std::string_view command) {
    ++m_sent;
    m_referee->put_command(window_line(command));
}

void Console::put_command(const std::string& line) {
    const std::lock_guard lock(m_mutex);
    std::fputs((line + '\n').c_str(), m_out);
    const auto effects = to_window::effects_of(line);
    if (effects.ends_all) m_leave();
    if (effects.ends_match) m_match_running = false;
    if (effects.ends_search) m_engine_searches = false;
    quit_when_done();
}

void Console::acknowledge(std::uint64_t taken) {
    const std::lock_guard lock(m_mutex);
    m_taken = taken;
    quit_when_done();
}

void Console::flush() {
    const std::lock_guard lock(m_mutex);
    if (std::fflush(m_out) == 0 && std::ferror(m_out) == 0) return;
    // Nobody reads any more, so nobody waits for a match either.
    quit();
}

/// REQUIRES: m_mutex is held. Called wherever one of the three may have become true.
void Console::quit_when_done() {
    if (m_input_ended && !m_match_running && m_taken == m_sent) quit();
}

/// REQUIRES: m_mutex is held. Once, however many reasons there are.
void Console::quit() {
    if (!std::exchange(m_quit_sent, true))
        m_referee->put_command(window_line(to_referee::encode(to_referee::Quit())));
}

}  // namespace velmora
