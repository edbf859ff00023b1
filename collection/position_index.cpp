#include "collection/position_index.h"

#include <algorithm>
#include <cstring>

#include "collection/checksum.h"
#include "collection/output_file.h"

namespace velmora {

namespace {

using position_file::BusyPosition;
using position_file::Header;

bool header_is_whole(const Header& header) {
    const std::string_view bytes(reinterpret_cast<const char*>(&header), sizeof header);
    return header.magic == position_file::magic &&
           checksum(bytes.substr(0, sizeof header - sizeof header.header_sum)) == header.header_sum;
}

/// Whether the sizes fit each other; the counts are looked at first, so that no sum of them wraps around.
bool sizes_fit(const Header& header, std::uint64_t file_size) {
    if (header.stretch_bits > position_file::most_stretch_bits || header.records > file_size ||
        header.busy > file_size || header.moves > file_size) {
        return false;
    }
    return position_file::moves_at(header) + header.moves * sizeof(MoveStatistics) == file_size;
}

MoveStatistics& sum_of(std::uint16_t move, std::vector<MoveStatistics>& sums) {
    auto found = std::lower_bound(sums.begin(), sums.end(), move,
                                  [](const MoveStatistics& sum, std::uint16_t m) { return sum.move < m; });
    if (found == sums.end() || found->move != move) {
        found = sums.insert(found, MoveStatistics());
        found->move = move;
    }
    return *found;
}

}  // namespace

bool PositionIndex::open(const std::string& path) {
    m_header = {};
    if (!m_file.open(path) || m_file.size() < sizeof m_header) return false;
    std::memcpy(&m_header, m_file.data(), sizeof m_header);
    if (!header_is_whole(m_header) || !sizes_fit(m_header, m_file.size())) {
        m_header = {};
        return false;
    }
    m_stretches =
        table<std::uint64_t>(position_file::stretches_at(), (std::uint64_t{1} << m_header.stretch_bits) + 1);
    m_busy = table<BusyPosition>(position_file::busy_at(m_header), m_header.busy);
    m_moves = table<MoveStatistics>(position_file::moves_at(m_header), m_header.moves);
    if (tables_are_whole()) return true;
    m_header = {};
    return false;
}

bool PositionIndex::tables_are_whole() const {
    const auto sum = checksum(bytes_of(m_moves), checksum(bytes_of(m_busy), checksum(bytes_of(m_stretches))));
    return sum == m_header.tables_sum && m_stretches.back() == m_header.records &&
           std::is_sorted(m_stretches.begin(), m_stretches.end());
}

PositionIndex::Range PositionIndex::find(std::uint64_t key) const {
    // A file that somebody cuts short under our hands must not end the program.
    if (m_header.records == 0 || m_file.readable_size() < m_file.size()) return {};
    const auto bits = static_cast<int>(m_header.stretch_bits);
    const auto stretch = static_cast<std::size_t>(key >> 1 >> (63 - bits));
    const auto first = m_stretches[stretch];
    const auto* const records = m_file.data() + position_file::records_at(m_header);
    Range range{records + first * packed_record::size, m_stretches[stretch + 1] - first,
                key << bits >> (64 - packed_record::key_bits) << move_bits};
    return narrowed(range, range.rest, range.rest + move_mask);
}

/// The records of a sorted range from `low` to `high`, both included.
PositionIndex::Range PositionIndex::narrowed(Range range, std::uint64_t low, std::uint64_t high) const {
    const auto first_not_below = [range](std::uint64_t rest) {
        std::uint64_t begin = 0;
        std::uint64_t end = range.count;
        while (begin < end) {
            const auto middle = (begin + end) / 2;
            if (packed_record::rest(range.begin + middle * packed_record::size) < rest) {
                begin = middle + 1;
            } else {
                end = middle;
            }
        }
        return begin;
    };
    const auto begin = first_not_below(low);
    const auto end = std::max(begin, first_not_below(high + 1));
    return {range.begin + begin * packed_record::size, end - begin, range.rest};
}

const BusyPosition* PositionIndex::find_busy(std::uint64_t key) const {
    const auto wanted = key >> (64 - packed_record::key_bits - static_cast<int>(m_header.stretch_bits));
    const auto found =
        std::lower_bound(m_busy.begin(), m_busy.end(), wanted,
                         [](const BusyPosition& busy, std::uint64_t k) { return busy.key < k; });
    const bool is_there = found != m_busy.end() && found->key == wanted &&
                          std::uint64_t{found->first_move} + found->move_count <= m_moves.size();
    return is_there ? &*found : nullptr;
}

void PositionIndex::add_statistics(std::uint64_t key, std::span<const GameColumns> games,
                                   std::vector<MoveStatistics>& sums) const {
    const auto range = find(key);
    if (range.count == 0) return;
    if (const auto* const busy = find_busy(key)) {
        for (const auto& sum : m_moves.subspan(busy->first_move, busy->move_count))
            sum_of(sum.move, sums).add(sum);
        return;
    }
    MoveStatistics* sum = nullptr;
    std::uint64_t last_rest = 0;
    std::uint32_t last_game = 0;
    for (std::uint64_t i = 0; i < range.count; ++i) {
        const auto* const record = range.begin + i * packed_record::size;
        const auto rest = packed_record::rest(record);
        const auto game = packed_record::game(record);
        if (sum != nullptr && rest == last_rest && game == last_game) continue;
        if (sum == nullptr || rest != last_rest)
            sum = &sum_of(static_cast<std::uint16_t>(rest & move_mask), sums);
        if (game < games.size()) sum->add(games[game]);
        last_rest = rest;
        last_game = game;
    }
}

void PositionIndex::append_games(std::uint64_t key, std::vector<std::uint32_t>& numbers) const {
    append(find(key), numbers);
}

void PositionIndex::append_games(std::uint64_t key, std::uint16_t move,
                                 std::vector<std::uint32_t>& numbers) const {
    const auto range = find(key);
    append(narrowed(range, range.rest | move, range.rest | move), numbers);
}

void PositionIndex::append(Range range, std::vector<std::uint32_t>& numbers) const {
    const auto end = m_header.first_game + std::uint64_t{m_header.games};
    for (std::uint64_t i = 0; i < range.count; ++i) {
        const auto game = packed_record::game(range.begin + i * packed_record::size);
        if (game >= m_header.first_game && game < end) numbers.push_back(game);
    }
}

}  // namespace velmora
