#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "collection/game_database.h"
#include "collection/game_digester.h"
#include "collection/game_table.h"
#include "collection/index_manifest.h"
#include "collection/position_sorter.h"

namespace velmora {

/// Takes batches in the order of the file and writes them behind what an index has: rows, columns, positions.
///
/// Games whose number is below those that the index has are read once more for the sake of their positions
/// alone, when small position files become one. For one thread at a time.
class IndexWriter {
public:
    /// The files lie in `directory`. `manifest` tells what is there and is brought up to date. `first_game`
    /// is the number of the first game that is handed over.
    IndexWriter(const std::string& directory, IndexManifest& manifest, std::uint32_t first_game,
                std::uint64_t expected_positions);

    void add(const GameBatch& batch);
    PositionSorter& positions() { return m_sorter; }

    /// All rows and columns have arrived.
    void finish();

private:
    std::uint32_t text_number(std::string_view text);
    void add_game(GameColumns game, std::string_view start_fen, const std::vector<std::uint32_t>& texts);

    IndexManifest& m_manifest;
    GameDatabase m_database;
    GameTableWriter m_table;
    PositionSorter m_sorter;
    std::uint32_t m_next_game;
    std::unordered_map<std::string, std::uint32_t> m_text_numbers;
};

/// The names of an index's files in its directory.
inline constexpr const char* database_file = "games.sqlite";
inline constexpr const char* table_file = "games.columns";

}  // namespace velmora
