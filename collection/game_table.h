#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "collection/game_columns.h"
#include "collection/output_file.h"
#include "openings/mapped_file.h"

namespace velmora {

/// The columns of all games of a collection, one record a game, mapped into memory.
class GameTable {
public:
    /// Maps the first `games` of the file; false when it has fewer or is none.
    bool open(const std::string& path, std::uint32_t games);

    std::span<const GameColumns> games() const { return m_games; }

private:
    MappedFile m_file;
    std::span<const GameColumns> m_games;
};

/// Writes the file of a GameTable: games are put behind those that count, over what a broken addition has
/// left.
class GameTableWriter {
public:
    GameTableWriter(const std::string& path, std::uint32_t games);

    void add(const GameColumns& game);
    /// Hands what was added to the system.
    void flush();
    void sync();

private:
    OutputFile m_file;
    std::uint64_t m_games;  // that the file has
    std::vector<GameColumns> m_added;
};

}  // namespace velmora
