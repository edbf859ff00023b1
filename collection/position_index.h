#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "collection/game_columns.h"
#include "collection/move_statistics.h"
#include "collection/position_file.h"
#include "openings/mapped_file.h"

namespace velmora {

/// The positions of some games, by key: a file that PositionSorter wrote, mapped into memory and only read.
///
/// A question touches a page of the stretches and the pages of its records; the tables are checked by their
/// sums when the file is opened, the records, which are nearly all of it, as they are read: one that is
/// damaged can give a wrong answer, but none that names a game which isn't there. May be asked by several
/// threads.
class PositionIndex {
public:
    /// False for a file that is missing, of another program, version or machine, damaged or cut short.
    bool open(const std::string& path);

    std::uint32_t first_game() const { return m_header.first_game; }
    std::uint32_t games() const { return m_header.games; }
    std::uint64_t records() const { return m_header.records; }

    /// Adds to `sums`, one for each move that was played from the position of this key, in ascending order of
    /// their codes. `games` are all games by number.
    void add_statistics(std::uint64_t key, std::span<const GameColumns> games,
                        std::vector<MoveStatistics>& sums) const;

    /// Appends the numbers of the games that came to the position; with `move`, of those that played this
    /// move there. Ascending for each move, so a game may come more than once.
    void append_games(std::uint64_t key, std::vector<std::uint32_t>& numbers) const;
    void append_games(std::uint64_t key, std::uint16_t move, std::vector<std::uint32_t>& numbers) const;

private:
    struct Range {
        const unsigned char* begin = nullptr;
        std::uint64_t count = 0;
        std::uint64_t rest = 0;  ///< the key bits of its records, where they stand in a record
    };

    bool tables_are_whole() const;
    Range find(std::uint64_t key) const;
    Range narrowed(Range range, std::uint64_t low, std::uint64_t high) const;
    const position_file::BusyPosition* find_busy(std::uint64_t key) const;
    void append(Range range, std::vector<std::uint32_t>& numbers) const;

    template <class T>
    std::span<const T> table(std::uint64_t at, std::uint64_t count) const {
        return {reinterpret_cast<const T*>(m_file.data() + at), static_cast<std::size_t>(count)};
    }

    MappedFile m_file;
    position_file::Header m_header;
    std::span<const std::uint64_t> m_stretches;
    std::span<const position_file::BusyPosition> m_busy;
    std::span<const MoveStatistics> m_moves;
};

}  // namespace velmora
