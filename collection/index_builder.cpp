#include "collection/index_builder.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <filesystem>
#include <mutex>
#include <thread>
#include <vector>

#include "collection/batch_sequence.h"
#include "collection/game_spans.h"
#include "collection/game_table.h"
#include "collection/index_writer.h"

namespace velmora {

namespace {

/// What a thread takes at once.
constexpr std::uint64_t part_size = std::uint64_t{4} << 20;
/// A batch is handed over at this size, though its part isn't done: 16 MiB.
constexpr std::size_t batch_positions = std::size_t{1} << 20;
/// A bare game has some six bytes a ply. Only the number of heaps hangs on it.
constexpr std::uint64_t bytes_per_position = 6;
constexpr unsigned most_jobs = 64;

/// Takes a directory away again unless it is kept.
class FreshDirectory {
public:
    explicit FreshDirectory(std::string path) : m_path(std::move(path)) {}
    ~FreshDirectory() {
        std::error_code error;
        if (!m_kept) std::filesystem::remove_all(m_path, error);
    }
    FreshDirectory(const FreshDirectory&) = delete;
    FreshDirectory& operator=(const FreshDirectory&) = delete;
    void keep() { m_kept = true; }

private:
    std::string m_path;
    bool m_kept = false;
};

}  // namespace

/// One walk over the file: what its threads share.
struct IndexBuilder::Reading {
    std::uint64_t begin = 0;
    std::size_t parts = 0;
    BatchSequence batches;
    std::atomic<std::size_t> next_part = 0;
    std::mutex mutex{};
    std::exception_ptr error{};  // guarded by mutex while the threads run; the first one

    void fail() {
        {
            const std::lock_guard lock(mutex);
            if (!error) error = std::current_exception();
        }
        batches.stop();
    }
};

IndexBuilder::IndexBuilder(const IndexPlace& place, const SourceFile& source, IndexOptions options)
    : m_place(place),
      m_source(source),
      m_options(std::move(options)),
      m_jobs(std::clamp(m_options.jobs == 0 ? std::thread::hardware_concurrency() : m_options.jobs, 1U,
                        most_jobs)) {}

IndexManifest IndexBuilder::build() {
    IndexManifest manifest;
    manifest.path = m_place.pgn_path();
    manifest.directory = m_place.make_directory();
    FreshDirectory directory(m_place.path_of(manifest, ""));
    index_from(manifest, 0, 0);
    m_place.publish(manifest);
    directory.keep();
    m_place.remove_all_but(manifest);
    return manifest;
}

/// Each addition makes a position file of its own; those that are small beside what comes behind them become
/// one with it, so there are never more files than the logarithm of the games.
IndexManifest IndexBuilder::append(IndexManifest manifest) {
    auto first_game = manifest.games;
    auto offset = manifest.read_to;
    GameTable table;
    if (!table.open(m_place.path_of(manifest, table_file), manifest.games)) {
        return build();
    }
    std::uint64_t joined = 1;
    auto& segments = manifest.segments;
    while (!segments.empty() && segments.back().games <= 2 * joined) {
        joined += segments.back().games;
        first_game -= segments.back().games;
        offset = table.games()[first_game].offset;
        segments.pop_back();
    }
    if (offset > m_source.size()) return build();  // the columns are damaged
    index_from(manifest, offset, first_game);
    m_place.publish(manifest);
    m_place.remove_all_but(manifest);
    return manifest;
}

void IndexBuilder::index_from(IndexManifest& manifest, std::uint64_t offset, std::uint32_t first_game) {
    const auto directory = m_place.path_of(manifest, "");
    const auto bytes = m_source.size() - offset;
    IndexWriter writer(directory, manifest, first_game, bytes / bytes_per_position);
    Reading reading{
        .begin = offset,
        .parts = static_cast<std::size_t>((bytes + part_size - 1) / part_size),
        .batches = BatchSequence(m_jobs, [&](const GameBatch& batch) {
            writer.add(batch);
            if (m_options.on_progress) {
                m_options.on_progress({IndexProgress::Phase::reading, batch.end, m_source.size()});
            }
        })};
    read_parts(reading);
    writer.finish();

    const auto file = free_name(manifest);
    GameTable table;
    if (!table.open(directory + table_file, manifest.games))
        throw std::runtime_error(directory + ": can't be read");
    auto& sorter = writer.positions();
    const auto on_progress = [&](std::uint64_t done) {
        if (m_options.on_progress)
            m_options.on_progress({IndexProgress::Phase::sorting, done, sorter.records()});
    };
    if (!sorter.write(directory + file, table.games(), first_game, m_jobs, on_progress, m_options.stop)) {
        throw IndexStopped();
    }
    manifest.segments.push_back({file, manifest.games - first_game});
    manifest.source = m_source.stamp();
    if (!m_source.is_unchanged()) {
        throw std::runtime_error(m_place.pgn_path() + ": the file was changed while it was read");
    }
}

void IndexBuilder::read_parts(Reading& reading) {
    const auto work = [this, &reading] {
        try {
            for (auto number = reading.next_part++; number < reading.parts; number = reading.next_part++) {
                read_part(reading, number);
            }
        } catch (...) {
            reading.fail();
        }
    };
    {
        const auto jobs = std::min<std::size_t>(m_jobs, reading.parts);
        std::vector<std::jthread> threads;
        for (std::size_t job = 1; job < jobs; ++job) threads.emplace_back(work);
        work();
    }
    if (reading.error) std::rethrow_exception(reading.error);
}

void IndexBuilder::read_part(Reading& reading, std::size_t number) {
    const auto begin = reading.begin + number * part_size;
    GameSpans spans(m_source.descriptor(), begin, begin + part_size, m_source.size(),
                    number == 0 ? GameSpans::Front::any_tag : GameSpans::Front::event_line);
    GameDigester digester;
    GameBatch batch;
    while (const auto span = spans.next()) {
        if (m_options.stop.stop_requested()) throw IndexStopped();
        spans.consume(digester.add(*span, batch));
        if (batch.positions.size() < batch_positions) continue;
        if (!reading.batches.hand_over(number, std::move(batch), BatchSequence::Part::goes_on)) return;
        batch = GameBatch();
    }
    if (spans.fell_short()) {
        throw std::runtime_error(m_place.pgn_path() + ": the file became shorter while it was read");
    }
    batch.end = std::max(batch.end, std::min(begin + part_size, m_source.size()));
    reading.batches.hand_over(number, std::move(batch), BatchSequence::Part::is_done);
}

/// "positions-1", "positions-2" ...: the first that isn't there.
std::string IndexBuilder::free_name(const IndexManifest& manifest) const {
    for (int number = 1;; ++number) {
        auto name = "positions-" + std::to_string(number);
        std::error_code error;
        if (!std::filesystem::exists(m_place.path_of(manifest, name), error)) return name;
    }
}

}  // namespace velmora
