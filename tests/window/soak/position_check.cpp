#include "tests/window/soak/position_check.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "base/text.h"
#include "chess/moves/legal_moves.h"

namespace velmora::soak {

namespace {

constexpr const char* engine_log = "engine1.log";
constexpr const char* referee_log = "manager.log";
/// What the engine's log has ahead of a position that the engine was told.
constexpr std::string_view told_mark = "engine <- position ";

std::streamoff size_of(const std::string& path) {
    std::error_code missing;
    const auto size = std::filesystem::file_size(path, missing);
    return missing ? 0 : static_cast<std::streamoff>(size);
}

/// What has been written to a file from an offset on.
std::string read_from(const std::string& path, std::streamoff offset) {
    std::ifstream file(path);
    file.seekg(offset);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// The last lines of a log.
std::string tail(const std::string& path) {
    constexpr std::streamoff bytes = 3000;
    return "...\n" + read_from(path, std::max<std::streamoff>(0, size_of(path) - bytes));
}

/// The FEN that a UCI "position" command stands for; empty when it can't be played through.
std::string told_fen(std::string_view command) {
    text::WordReader reader(command);
    ChessPosition position;
    position.new_game();
    auto word = reader.word();
    if (word == "fen") {
        std::string fen;
        for (word = reader.word(); !word.empty() && word != "moves"; word = reader.word()) {
            fen.append(word) += ' ';
        }
        position.set_fen(fen);
    }
    while (!word.empty() && word != "moves") word = reader.word();
    for (word = reader.word(); !word.empty(); word = reader.word()) {
        const auto move = find_legal(position, position.convert_to_move(std::string(word)));
        if (!move) return {};
        position.do_move(*move);
    }
    return position.fen();
}

/// The FEN that was told with the mark at `at`; empty while its line isn't complete.
std::string told_at(const std::string& log, std::size_t at) {
    const auto end = log.find('\n', at);
    if (end == std::string::npos) return {};
    at += told_mark.size();
    return told_fen(std::string_view(log).substr(at, end - at));
}

std::string last_told(const std::string& log) {
    const auto at = log.rfind(told_mark);
    return at == std::string::npos ? "" : told_at(log, at);
}

}  // namespace

bool PositionCheck::is_quiet() {
    using clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds three_ticks{150};
    if (m_mark.empty()) {
        m_mark_start = size_of(referee_log);
        m_mark = "wake_up mark " + std::to_string(++m_marks);
        m_window.send_to_manager(m_mark);
        m_mark_seen.reset();
    }
    if (!m_mark_seen && read_from(referee_log, m_mark_start).find(m_mark + '\n') != std::string::npos)
        m_mark_seen = clock::now();
    if (!m_mark_seen || clock::now() < *m_mark_seen + three_ticks) return false;
    m_mark.clear();
    return true;
}

void PositionCheck::prepare() {
    m_log_start = size_of(engine_log);
    m_told = last_told(read_from(engine_log, 0));
    m_prepared = std::chrono::steady_clock::now();
}

PositionCheck::State PositionCheck::look() {
    // Every line that was under way has arrived by then, also with the sanitizers on a busy machine.
    constexpr std::chrono::seconds deadline{60};
    if (!is_waiting()) return State::idle;
    const std::string log = read_from(engine_log, m_log_start);
    std::string told;
    // The move that an engine ponders on is told it ahead of time: it hears no more than that it was made.
    if (log.find("engine <- ponderhit\n") != std::string::npos) {
        if (m_told.empty()) {  // in a log that has been begun anew since
            give_up();
            return State::idle;
        }
        told = m_told;
    }
    // An engine that ponders is told what it expects as well.
    for (auto at = log.find(told_mark); at != std::string::npos && told != m_shown;
         at = log.find(told_mark, at + 1)) {
        told = told_at(log, at);
    }
    if (told == m_shown) {
        give_up();
        return State::agrees;
    }
    if (std::chrono::steady_clock::now() < m_prepared + deadline) return State::waiting;
    m_report = "window " + m_shown + "\nreferee " + told + '\n' + tail(engine_log) + tail(referee_log);
    give_up();
    return State::differs;
}

}  // namespace velmora::soak
