#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "collection/position_record.h"

/// The layout of a file of sorted positions, in the byte order of the machine; it is a cache and never
/// travels.
///
///     header
///     stretches   2^stretch_bits + 1 numbers of 64 bits: the first record of each stretch, and the end
///     records     packed_record::size bytes each, by key, move, game; two games of one move never change
///     places busy        BusyPosition, by key moves       MoveStatistics of the busy positions
///
/// A stretch has the keys with the same leading bits. Records are ten bytes, so 8 bytes of padding let the
/// last one be read by words, and what follows begins at a multiple of 8.
namespace velmora::position_file {

struct Header {
    std::uint64_t magic = 0;
    std::uint64_t records = 0;
    std::uint64_t busy = 0;
    std::uint64_t moves = 0;
    std::uint32_t stretch_bits = 0;
    std::uint32_t first_game = 0;  ///< the games of this file
    std::uint32_t games = 0;
    std::uint32_t unused = 0;
    std::uint64_t tables_sum = 0;  ///< checksum of stretches, busy and moves
    std::uint64_t header_sum = 0;  ///< checksum of what stands ahead of it
};
static_assert(sizeof(Header) == 64 && std::is_trivially_copyable_v<Header>);

/// "velmpos" and the version of the layout. Another byte order makes it another number.
inline constexpr std::uint64_t magic = 0x0173'6F70'6D6C'6576;

/// A position that has so many records that its statistics stand in the file.
///
/// The walk over 1,000 games takes some 20 microseconds, over the million games of the start position far
/// more than somebody who steps through a game may wait.
struct BusyPosition {
    std::uint64_t key = 0;  ///< the leading stretch_bits + packed_record::key_bits, right-aligned
    std::uint32_t first_move = 0;
    std::uint32_t move_count = 0;
};
static_assert(sizeof(BusyPosition) == 16 && std::is_trivially_copyable_v<BusyPosition>);

inline constexpr std::size_t busy_records = 1000;

/// Records that a stretch has on average, at most.
inline constexpr std::uint64_t stretch_records = 128;
/// More stretches than this would be a directory of gigabytes.
inline constexpr std::uint32_t most_stretch_bits = 28;

constexpr std::uint64_t stretches_at() { return sizeof(Header); }
constexpr std::uint64_t records_at(const Header& header) {
    return stretches_at() + ((std::uint64_t{1} << header.stretch_bits) + 1) * sizeof(std::uint64_t);
}
constexpr std::uint64_t busy_at(const Header& header) {
    return (records_at(header) + header.records * packed_record::size + 8 + 7) / 8 * 8;
}
constexpr std::uint64_t moves_at(const Header& header) {
    return busy_at(header) + header.busy * sizeof(BusyPosition);
}

}  // namespace velmora::position_file
