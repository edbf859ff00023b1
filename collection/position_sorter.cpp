#include "collection/position_sorter.h"

#include <algorithm>
#include <atomic>
#include <bit>
#include <exception>
#include <mutex>
#include <thread>

#include "collection/checksum.h"

namespace velmora {

namespace {

using position_file::BusyPosition;
using position_file::Header;

/// A heap of this many records is sorted within the caches of a core.
constexpr std::uint64_t heap_records = 1 << 17;
constexpr int most_heap_bits = 12;
/// All blocks together have at most 64 MiB.
constexpr std::size_t blocks_bytes = std::size_t{64} << 20;
constexpr std::size_t largest_block = 4096;

int heap_bits_for(std::uint64_t records) {
    return std::min(most_heap_bits, static_cast<int>(std::bit_width(records / heap_records)));
}

/// The key's low bits give way to the move.
std::uint64_t joined(std::uint64_t key, std::uint16_t move) {
    return (key & ~std::uint64_t{move_mask}) | move;
}

}  // namespace

PositionSorter::PositionSorter(const std::string& scratch_directory, std::uint64_t expected_records)
    : m_heap_bits(heap_bits_for(expected_records)),
      m_block_records(std::min(largest_block, blocks_bytes / sizeof(Dealt) >> m_heap_bits)),
      m_scratch(scratch_directory, OutputFile::Kind::nameless),
      m_heaps(std::size_t{1} << m_heap_bits) {}

void PositionSorter::add(std::span<const PositionRecord> records, std::uint32_t first_game) {
    for (const auto& record : records) {
        // Shifted in two steps: a single heap would shift by all 64 bits.
        auto& heap = m_heaps[static_cast<std::size_t>(record.key >> 1 >> (63 - m_heap_bits))];
        heap.block.push_back({joined(record.key << m_heap_bits, record.move), first_game + record.game});
        if (heap.block.size() == m_block_records) put_block_away(heap);
    }
    m_records += records.size();
}

void PositionSorter::put_block_away(Heap& heap) {
    m_scratch.write_at(m_scratch_size, bytes_of<Dealt>(heap.block));
    heap.spilled.push_back(m_scratch_size);
    m_scratch_size += heap.block.size() * sizeof(Dealt);
    heap.block.clear();
}

std::uint64_t PositionSorter::size_of(const Heap& heap) const {
    return heap.spilled.size() * m_block_records + heap.block.size();
}

std::vector<PositionSorter::Record> PositionSorter::load(const Heap& heap) const {
    std::vector<Record> records;
    records.reserve(size_of(heap));
    const auto append = [&records](std::span<const Dealt> dealt) {
        for (const auto& one : dealt) records.push_back({one.key_and_move, one.game});
    };
    std::vector<Dealt> block(heap.spilled.empty() ? 0 : m_block_records);
    for (const auto offset : heap.spilled) {
        m_scratch.read_at(offset, {reinterpret_cast<char*>(block.data()), block.size() * sizeof(Dealt)});
        append(block);
    }
    append(heap.block);
    return records;
}

/// One run of write(): what its threads share.
class PositionSorter::Writing {
public:
    Writing(PositionSorter& sorter, const std::string& path, std::span<const GameColumns> games,
            std::uint32_t first_game, const std::function<void(std::uint64_t)>& progress,
            std::stop_token stop)
        : m_sorter(sorter),
          m_games(games),
          m_progress(progress),
          m_stop(std::move(stop)),
          m_file(path, OutputFile::Kind::fresh) {
        m_header.records = sorter.m_records;
        const auto wanted = std::bit_width(m_header.records / position_file::stretch_records);
        m_header.stretch_bits = std::min(
            {std::max(static_cast<std::uint32_t>(wanted), static_cast<std::uint32_t>(sorter.m_heap_bits)),
             static_cast<std::uint32_t>(sorter.m_heap_bits) + 16, position_file::most_stretch_bits});
        m_header.first_game = first_game;
        m_header.games = static_cast<std::uint32_t>(games.size()) - first_game;
        m_stretches.resize((std::size_t{1} << m_header.stretch_bits) + 1);
        std::uint64_t first = 0;
        for (auto& heap : sorter.m_heaps) {
            heap.first = first;
            first += sorter.size_of(heap);
        }
        m_stretches.back() = first;
    }

    bool run(unsigned jobs) {
        {
            std::vector<std::jthread> threads;
            for (unsigned job = 1; job < jobs; ++job) threads.emplace_back([this] { take_heaps(); });
            take_heaps();
        }
        if (m_error) std::rethrow_exception(m_error);
        if (m_stop.stop_requested()) return false;
        finish();
        return true;
    }

private:
    void take_heaps() {
        try {
            while (!m_stop.stop_requested() && !m_failed) {
                const auto number = m_next_heap++;
                if (number >= m_sorter.m_heaps.size()) return;
                const auto count = write_heap(number);
                const std::lock_guard lock(m_mutex);
                m_written += count;
                m_progress(m_written);
            }
        } catch (...) {
            const std::lock_guard lock(m_mutex);
            if (!m_error) m_error = std::current_exception();
            m_failed = true;
        }
    }

    /// Returns how many records the heap has.
    std::size_t write_heap(std::size_t number) {
        auto& heap = m_sorter.m_heaps[number];
        auto records = m_sorter.load(heap);
        std::sort(records.begin(), records.end(), [](const Record& a, const Record& b) {
            return a.key_and_move != b.key_and_move ? a.key_and_move < b.key_and_move : a.game < b.game;
        });
        enter_stretches(number, records, heap.first);
        collect_busy(number, records, heap);

        std::string packed(records.size() * packed_record::size, '\0');
        const auto heap_shift = static_cast<int>(m_header.stretch_bits) - m_sorter.m_heap_bits;
        for (std::size_t i = 0; i < records.size(); ++i) {
            packed_record::store(packed.data() + i * packed_record::size,
                                 rest_of(records[i].key_and_move, heap_shift), records[i].game);
        }
        m_file.write_at(position_file::records_at(m_header) + heap.first * packed_record::size, packed);
        heap.block = {};
        return records.size();
    }

    /// The key bits behind the stretch's, and the move.
    static std::uint64_t rest_of(std::uint64_t key_and_move, int heap_shift) {
        const auto key = key_and_move << heap_shift >> (64 - packed_record::key_bits);
        return key << move_bits | (key_and_move & move_mask);
    }

    void enter_stretches(std::size_t number, std::span<const Record> records, std::uint64_t first) {
        const auto heap_shift = static_cast<int>(m_header.stretch_bits) - m_sorter.m_heap_bits;
        const auto stretch_of = [heap_shift](const Record& record) {
            return heap_shift == 0 ? 0 : static_cast<std::size_t>(record.key_and_move >> (64 - heap_shift));
        };
        auto* const stretches = m_stretches.data() + (number << heap_shift);
        std::size_t at = 0;
        for (std::size_t stretch = 0; stretch < std::size_t{1} << heap_shift; ++stretch) {
            while (at < records.size() && stretch_of(records[at]) < stretch) ++at;
            stretches[stretch] = first + at;
        }
    }

    void collect_busy(std::size_t number, std::span<const Record> records, Heap& heap) {
        const auto same_key = [](const Record& a, const Record& b) {
            return (a.key_and_move >> move_bits) == (b.key_and_move >> move_bits);
        };
        for (std::size_t begin = 0; begin < records.size();) {
            auto end = begin + 1;
            while (end < records.size() && same_key(records[begin], records[end])) ++end;
            if (end - begin >= position_file::busy_records)
                add_busy(number, records.subspan(begin, end - begin), heap);
            begin = end;
        }
    }

    void add_busy(std::size_t number, std::span<const Record> records, Heap& heap) {
        const auto heap_bits = m_sorter.m_heap_bits;
        const auto key_bits = static_cast<int>(m_header.stretch_bits) + packed_record::key_bits;
        const auto behind_heap = records.front().key_and_move >> (64 - (key_bits - heap_bits));
        BusyPosition busy;
        busy.key = static_cast<std::uint64_t>(number) << (key_bits - heap_bits) | behind_heap;
        busy.first_move = static_cast<std::uint32_t>(heap.moves.size());
        for (std::size_t i = 0; i < records.size(); ++i) {
            const auto move = static_cast<std::uint16_t>(records[i].key_and_move & move_mask);
            const bool is_new = i == 0 || records[i].key_and_move != records[i - 1].key_and_move;
            if (is_new) {
                heap.moves.emplace_back();
                heap.moves.back().move = move;
            } else if (records[i].game == records[i - 1].game) {
                continue;
            }
            heap.moves.back().add(m_games[records[i].game]);
        }
        busy.move_count = static_cast<std::uint32_t>(heap.moves.size()) - busy.first_move;
        heap.busy.push_back(busy);
    }

    /// Puts the tables of all heaps behind the records.
    void finish() {
        std::vector<BusyPosition> busy;
        std::vector<MoveStatistics> moves;
        for (auto& heap : m_sorter.m_heaps) {
            for (auto position : heap.busy) {
                position.first_move += static_cast<std::uint32_t>(moves.size());
                busy.push_back(position);
            }
            moves.insert(moves.end(), heap.moves.begin(), heap.moves.end());
        }
        m_header.magic = position_file::magic;
        m_header.busy = busy.size();
        m_header.moves = moves.size();
        const auto stretches = bytes_of<std::uint64_t>(m_stretches);
        m_header.tables_sum = checksum(bytes_of<MoveStatistics>(moves),
                                       checksum(bytes_of<BusyPosition>(busy), checksum(stretches)));
        const std::string_view header(reinterpret_cast<const char*>(&m_header), sizeof m_header);
        m_header.header_sum = checksum(header.substr(0, sizeof m_header - sizeof m_header.header_sum));
        m_file.resize(position_file::moves_at(m_header) + moves.size() * sizeof(MoveStatistics));
        m_file.write_at(position_file::stretches_at(), stretches);
        m_file.write_at(position_file::busy_at(m_header), bytes_of<BusyPosition>(busy));
        m_file.write_at(position_file::moves_at(m_header), bytes_of<MoveStatistics>(moves));
        m_file.write_at(0, header);
        m_file.sync();
    }

    PositionSorter& m_sorter;
    const std::span<const GameColumns> m_games;
    const std::function<void(std::uint64_t)>& m_progress;
    const std::stop_token m_stop;
    OutputFile m_file;                       // each thread at places of its own
    Header m_header;                         // constant while the threads run
    std::vector<std::uint64_t> m_stretches;  // each heap has its own part
    std::atomic<std::size_t> m_next_heap = 0;
    std::atomic<bool> m_failed = false;
    std::mutex m_mutex;
    std::uint64_t m_written = 0;  // guarded by m_mutex
    std::exception_ptr m_error;   // guarded by m_mutex while the threads run
};

bool PositionSorter::write(const std::string& path, std::span<const GameColumns> games,
                           std::uint32_t first_game, unsigned jobs,
                           const std::function<void(std::uint64_t)>& progress, const std::stop_token& stop) {
    return Writing(*this, path, games, first_game, progress, stop).run(std::max(1U, jobs));
}

}  // namespace velmora
