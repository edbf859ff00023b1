#include "game/pgn_file.h"

#include "game/pgn_error.h"

namespace velmora {

bool PgnFile::open(const std::string& path) {
    close();
    if (!m_reader.open(path)) return false;
    m_path = path;
    return true;
}

void PgnFile::close() {
    m_reader.close();
    m_cutter.restart();
}

std::string PgnFile::first_game() {
    const auto path = m_path;
    return open(path) ? next_game() : std::string();
}

std::string PgnFile::next_game() {
    while (true) {
        try {
            return read_game();
        } catch (const pgn_error&) {
            // A list of games is no place for a message: the next one is taken.
        }
    }
}

std::string PgnFile::read_game() {
    std::string text;
    m_cutter.cut(text);
    return text;
}

std::string PgnFile::game_at(std::int64_t index) {
    auto text = first_game();
    std::string next;
    for (std::int64_t number = 1; number < index; ++number) {
        m_cutter.cut(next);
        if (next.empty()) break;
        text.swap(next);
    }
    return text;
}

std::string PgnFile::read_game_at(std::uint64_t offset) {
    m_reader.seek(offset);
    m_cutter.restart();
    return read_game();
}

bool PgnFile::open_for_writing(const std::string& path) {
    if (m_output.is_open()) m_output.close();
    m_output.clear();
    m_output.open(path, std::ios::out | std::ios::app | std::ios::binary);
    return m_output.is_open();
}

bool PgnFile::write(std::string_view text) {
    m_output << text;
    return m_output.good();
}

bool PgnFile::close_output() {
    if (!m_output.is_open()) return true;
    m_output.close();
    return m_output.good();
}

}  // namespace velmora
