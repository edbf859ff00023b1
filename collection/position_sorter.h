#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <stop_token>
#include <string>
#include <vector>

#include "collection/game_columns.h"
#include "collection/move_statistics.h"
#include "collection/output_file.h"
#include "collection/position_file.h"
#include "collection/position_record.h"

namespace velmora {

/// Sorts the positions of any number of games into a position file, in bounded memory.
///
/// Records are dealt out by the leading bits of their keys over heaps, each small enough to be sorted at
/// once; a heap keeps one block in memory and puts full ones into a nameless scratch file. Dealing instead of
/// merging sorted runs, because keys are mixed and heaps therefore even: each record is written and read
/// once, and heaps are sorted by as many threads as there are. A heap that is larger all the same, since it
/// has a position that all games share, is sorted like the others as long as it fits into memory: for the
/// start position that is 16 bytes a game.
class PositionSorter {
public:
    /// `scratch_directory` has room for twelve bytes a record. `expected_records` may be wrong by any factor;
    /// it decides how many heaps there are.
    PositionSorter(const std::string& scratch_directory, std::uint64_t expected_records);

    /// Takes positions of games that are numbered from `first_game`, each batch behind those of earlier
    /// games. For one thread at a time. Throws std::runtime_error when the scratch file can't be written.
    void add(std::span<const PositionRecord> records, std::uint32_t first_game);

    std::uint64_t records() const { return m_records; }

    /// Writes the file, sorting with `jobs` threads; `games` are the columns of all games by number, of which
    /// those from `first_game` on are this file's. Calls `progress` with the number of records that are
    /// written, from any of the threads, one at a time. False when it was stopped. Throws std::runtime_error.
    bool write(const std::string& path, std::span<const GameColumns> games, std::uint32_t first_game,
               unsigned jobs, const std::function<void(std::uint64_t)>& progress,
               const std::stop_token& stop);

private:
    /// Key bits behind the heap's and the move, and the game: twelve bytes in memory and on disk.
    struct [[gnu::packed]] Dealt {
        std::uint64_t key_and_move;
        std::uint32_t game;
    };
    struct Heap {
        std::vector<Dealt> block;
        std::vector<std::uint64_t> spilled;  ///< offsets of full blocks in the scratch file
        std::uint64_t first = 0;             ///< record in the sorted file
        std::vector<position_file::BusyPosition> busy;
        std::vector<MoveStatistics> moves;
    };
    struct Record {
        std::uint64_t key_and_move;
        std::uint32_t game;
    };
    class Writing;

    void put_block_away(Heap& heap);
    std::uint64_t size_of(const Heap& heap) const;
    std::vector<Record> load(const Heap& heap) const;

    const int m_heap_bits;
    const std::size_t m_block_records;
    OutputFile m_scratch;
    std::uint64_t m_scratch_size = 0;
    std::uint64_t m_records = 0;
    std::vector<Heap> m_heaps;
};

}  // namespace velmora
