#include "tests/window/soak/position_check.h"

#include <fstream>
#include <sstream>

#include "base/text.h"
#include "chess/moves/legal_moves.h"

namespace velmora::soak {

namespace {

constexpr const char* engine_log = "engine1.log";
constexpr const char* referee_log = "manager.log";

std::streamoff size_of(const char* path) {
    return std::max<std::streamoff>(0, std::ifstream(path, std::ios::ate).tellg());
}

/// What has been written to a file from an offset on.
std::string read_from(const char* path, std::streamoff offset) {
    std::ifstream file(path);
    file.seekg(offset);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// The FEN that a UCI "position" command stands for; empty when it can't be played through.
std::string told_fen(std::string_view command) {
    const auto moves = std::min(command.find(" moves "), command.size());
    constexpr std::string_view by_fen = "position fen ";
    ChessPosition position;
    position.new_game();
    if (command.starts_with(by_fen))
        position.set_fen(std::string(command.substr(by_fen.size(), moves - by_fen.size())));
    text::WordReader reader(command.substr(moves));
    reader.word();
    for (auto word = reader.word(); !word.empty(); word = reader.word()) {
        const auto move = find_legal(position, position.convert_to_move(std::string(word)));
        if (!move) return {};
        position.do_move(*move);
    }
    return position.fen();
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
    m_prepared = std::chrono::steady_clock::now();
}

PositionCheck::State PositionCheck::look() {
    // Every line that was under way has arrived by then, also with the sanitizers on a busy machine.
    constexpr std::chrono::seconds deadline{60};
    const std::string log = read_from(engine_log, m_log_start);
    std::istringstream lines(log);
    // An engine that ponders is told what it expects as well, so any of them will do.
    std::string told;
    for (std::string line; std::getline(lines, line) && !lines.eof();) {
        if (const auto at = line.find("engine <- "); at != std::string::npos) line.erase(0, at + 10);
        // The move that it has pondered on was told it ahead of time.
        if (line == "ponderhit") return State::unknown;
        if (!line.starts_with("position ")) continue;
        told = told_fen(line);
        if (told == m_shown) return State::agrees;
    }
    if (std::chrono::steady_clock::now() < m_prepared + deadline) return State::waiting;
    m_report = "window " + m_shown + "\nreferee " + told + '\n' + log;
    return State::differs;
}

}  // namespace velmora::soak
