#include "tools/velmora_console/console.h"

#include <algorithm>
#include <array>

#include "channel/text.h"

namespace velmora {

namespace {

/// The commands that leave a running match without a "tournament_finished".
constexpr std::array<std::string_view, 6> leaves_match = {"analyzeposition", "go",        "human_human",
                                                          "learnopenings",   "playother", "setboard"};

}  // namespace

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
    quit_when_done();
}

void Console::command(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    const auto word = text::first_word(line);
    {
        const std::lock_guard lock(m_mutex);
        if (word == "start_tournament") m_match_running = true;
        if (std::ranges::find(leaves_match, word) != leaves_match.end()) m_match_running = false;
    }
    m_referee->put_command("0 " + std::string(line));
}

void Console::put_command(const std::string& line) {
    const std::lock_guard lock(m_mutex);
    std::fputs((line + '\n').c_str(), m_out);
    if (line == "quit") m_leave();
    if (line == "tournament_finished") m_match_running = false;
    quit_when_done();
}

void Console::flush() {
    const std::lock_guard lock(m_mutex);
    if (std::fflush(m_out) == 0 && std::ferror(m_out) == 0) return;
    // Nobody reads any more, so nobody waits for a match either.
    m_input_ended = true;
    m_match_running = false;
    quit_when_done();
}

void Console::quit_when_done() {
    if (!m_input_ended || m_match_running || m_quit_sent) return;
    m_quit_sent = true;
    m_referee->put_command("0 quit");
}

}  // namespace velmora
