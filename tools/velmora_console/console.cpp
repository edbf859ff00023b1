#include "tools/velmora_console/console.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "base/text.h"

namespace velmora {

namespace {

/// The commands that leave a running match without a "tournament_finished".
constexpr std::array<std::string_view, 6> leaves_match = {"analyzeposition", "go",        "human_human",
                                                          "learnopenings",   "playother", "setboard"};

/// The commands behind which the first engine searches, outside of a match.
constexpr std::array<std::string_view, 3> starts_search = {"analyzeposition", "go", "usermove"};

template <std::size_t size>
bool contains(const std::array<std::string_view, size>& words, std::string_view word) {
    return std::ranges::find(words, word) != words.end();
}

/// Whether a line of the referee ends a search of its first engine.
bool ends_search(std::string_view line) {
    const auto word = text::first_word(line);
    return word == "move" || word == "1-0" || word == "0-1" || word == "1/2-1/2";
}

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
    // Changes nothing; when it has been taken, all ahead of it has been carried out.
    send("0 wake_up");
}

void Console::wake_up() {
    const std::lock_guard lock(m_mutex);
    if (m_match_running || m_engine_searches) send("0 wake_up");
}

void Console::command(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    const auto word = text::first_word(line);
    const std::lock_guard lock(m_mutex);
    if (word == "start_tournament") m_match_running = true;
    if (contains(leaves_match, word)) m_match_running = m_engine_searches = false;
    if (contains(starts_search, word)) m_engine_searches = true;
    send("0 " + std::string(line));
}

/// REQUIRES: m_mutex is held.
void Console::send(const std::string& line) {
    ++m_sent;
    m_referee->put_command(line);
}

void Console::put_command(const std::string& line) {
    const std::lock_guard lock(m_mutex);
    std::fputs((line + '\n').c_str(), m_out);
    if (line == "quit") m_leave();
    if (line == "tournament_finished") m_match_running = false;
    if (ends_search(line)) m_engine_searches = false;
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

void Console::quit_when_done() {
    if (m_input_ended && !m_match_running && m_taken == m_sent) quit();
}

void Console::quit() {
    if (!std::exchange(m_quit_sent, true)) m_referee->put_command("0 quit");
}

}  // namespace velmora
