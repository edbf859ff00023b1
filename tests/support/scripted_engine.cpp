#include "tests/support/scripted_engine.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iostream>
#include <poll.h>
#include <unistd.h>

#include "base/text.h"

namespace velmora::scripted {

namespace {

/// A forgotten engine ends by itself: seconds.
constexpr unsigned longest_life = 120;
constexpr int mismatch_status = 9;

/// Resolves \n \r \t \\ and \xHH.
std::string unescaped(std::string_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            bytes += text[i];
            continue;
        }
        const char kind = text[++i];
        if (kind == 'x') {
            bytes += static_cast<char>(std::stoi(std::string(text.substr(i + 1, 2)), nullptr, 16));
            i += 2;
        } else {
            bytes += kind == 'n' ? '\n' : kind == 'r' ? '\r' : kind == 't' ? '\t' : kind;
        }
    }
    return bytes;
}

int number(std::string_view word) { return text::strict_integer<int>(word).value_or(0); }

}  // namespace

bool Wire::fill() {
    char buffer[65536];
    const auto count = ::read(STDIN_FILENO, buffer, sizeof buffer);
    if (count <= 0) return false;
    m_pending.append(buffer, static_cast<std::size_t>(count));
    return true;
}

std::optional<std::string> Wire::read_line() {
    std::size_t end = 0;
    while ((end = m_pending.find('\n')) == std::string::npos) {
        if (!fill()) return std::nullopt;
    }
    std::string line = m_pending.substr(0, end);
    m_pending.erase(0, end + 1);
    if (!m_record_path.empty()) std::ofstream(m_record_path, std::ios::app | std::ios::binary) << line + '\n';
    if (line.ends_with('\r')) line.pop_back();
    return line;
}

bool Wire::has_line(int timeout_ms) {
    if (m_pending.find('\n') != std::string::npos) return true;
    pollfd input{STDIN_FILENO, POLLIN, 0};
    return ::poll(&input, 1, timeout_ms) > 0;
}

void Wire::write_bytes(const std::string& bytes) {
    std::string_view left(bytes);
    while (!left.empty()) {
        const auto count = ::write(STDOUT_FILENO, left.data(), left.size());
        if (count <= 0) return;
        left.remove_prefix(static_cast<std::size_t>(count));
    }
}

std::string Script::take_line(const std::string& awaited) {
    const auto line = m_wire.read_line();
    if (!line || (*line == "quit" && awaited != "quit")) {
        if (!m_ignores_quit) std::_Exit(0);
        while (!line) ::pause();
    }
    return *line;
}

void Script::rest() {
    for (;;) take_line("");
}

void Script::run(const std::string& command_line) {
    text::WordReader reader(command_line);
    const auto word = reader.word();
    const std::string rest_text(text::trim_leading_blanks(reader.rest()));
    if (word.empty() || word.starts_with('#')) return;
    if (word == "expect") {
        if (const std::string line = take_line(rest_text); line != rest_text) {
            std::cerr << "scripted engine: expected \"" << rest_text << "\", got \"" << line << "\"\n";
            std::_Exit(mismatch_status);
        }
    } else if (word == "until") {
        while (!take_line(rest_text).starts_with(rest_text)) continue;
    } else if (word == "answer") {
        m_wire.write_line(unescaped(rest_text));
    } else if (word == "write") {
        m_wire.write_bytes(unescaped(rest_text));
    } else if (word == "wait") {
        ::usleep(static_cast<useconds_t>(number(rest_text)) * 1000);
    } else if (word == "flood") {
        const int count = number(reader.word());
        const std::string bytes = unescaped(text::trim_leading_blanks(reader.rest())) + '\n';
        const auto place = bytes.find("%d");
        std::string block;
        for (int i = 1; i <= count; ++i) {
            block +=
                place == std::string::npos ? bytes : std::string(bytes).replace(place, 2, std::to_string(i));
            if (block.size() < 65536 && i < count) continue;
            m_wire.write_bytes(block);
            block.clear();
        }
    } else if (word == "close") {
        ::close(STDOUT_FILENO);
    } else if (word == "ignore") {
        m_ignores_quit = true;
    } else if (word == "hang") {
        for (;;) ::pause();
    } else if (word == "die") {
        std::_Exit(number(rest_text));
    } else if (word == "kill") {
        ::raise(number(rest_text));
    } else if (word == "rest") {
        rest();
    } else if (word == "name") {
        m_settings.name = rest_text;
    } else if (word == "option") {
        m_settings.options.push_back(rest_text);
    } else if (word == "line") {
        m_settings.lines.push_back(rest_text);
    } else if (word == "info") {
        m_settings.infos = number(rest_text);
    } else if (word == "think") {
        m_settings.think_ms = number(rest_text);
    } else if (word == "ponder") {
        m_settings.ponder = true;
    } else if (word == "at") {
        const int move_number = number(reader.word());
        m_settings.incidents.push_back({move_number, std::string(text::trim_leading_blanks(reader.rest()))});
    } else if (word == "play") {
        (rest_text == "xboard" ? play_xboard : play_uci)(m_settings, m_wire, *this);
        if (!m_ignores_quit) std::_Exit(0);
    } else {
        std::cerr << "scripted engine: unknown command \"" << command_line << "\"\n";
        std::_Exit(mismatch_status);
    }
}

}  // namespace velmora::scripted

int main(int /*argc*/, char** argv) {
    using namespace velmora::scripted;
    ::alarm(longest_life);
    ::signal(SIGPIPE, SIG_IGN);
    const std::string program = argv[0];
    const std::string base = program.substr(0, program.rfind('.'));
    std::ifstream script_file(base + ".script");
    const bool has_script = script_file.is_open();
    Wire wire(has_script ? base + ".sent" : "");
    Script script(wire);
    if (const char* path = std::getenv("VELMORA_ENGINE_SCRIPT"); !has_script && path != nullptr) {
        script_file.open(path);
    }
    if (!script_file.is_open()) script.run("play");
    for (std::string line; std::getline(script_file, line);) script.run(line);
    script.rest();
}
