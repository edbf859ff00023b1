#include "collection/game_table.h"

#include <cstring>
#include <sys/mman.h>

namespace velmora {

namespace {

/// "velgame" and the version of the columns; the rest of its 64 bytes is free, so that records lie on lines
/// of the cache.
constexpr std::uint64_t magic = 0x0165'6D61'676C'6576;
constexpr std::size_t front = sizeof(GameColumns);
constexpr std::size_t block = 4096;

std::uint64_t place_of(std::uint64_t game) { return front + game * sizeof(GameColumns); }

}  // namespace

bool GameTable::open(const std::string& path, std::uint32_t games) {
    m_games = {};
    if (!m_file.open(path) || m_file.size() < place_of(games)) return false;
    std::uint64_t found = 0;
    std::memcpy(&found, m_file.data(), sizeof found);
    if (found != magic) return false;
    // A filter walks over all of it.
    ::madvise(const_cast<unsigned char*>(m_file.data()), m_file.size(), MADV_NORMAL);
    m_games = {reinterpret_cast<const GameColumns*>(m_file.data() + front), games};
    return true;
}

GameTableWriter::GameTableWriter(const std::string& path, std::uint32_t games)
    : m_file(path, games == 0 ? OutputFile::Kind::fresh : OutputFile::Kind::existing), m_games(games) {
    std::string head(front, '\0');
    std::memcpy(head.data(), &magic, sizeof magic);
    if (games == 0) m_file.write_at(0, head);
}

void GameTableWriter::add(const GameColumns& game) {
    m_added.push_back(game);
    if (m_added.size() == block) flush();
}

void GameTableWriter::flush() {
    m_file.write_at(place_of(m_games), bytes_of<GameColumns>(m_added));
    m_games += m_added.size();
    m_added.clear();
}

void GameTableWriter::sync() { m_file.sync(); }

}  // namespace velmora
