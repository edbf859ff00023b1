#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <stop_token>

#include "collection/index_place.h"
#include "collection/source_file.h"

namespace velmora {

/// How far an index is.
struct IndexProgress {
    enum class Phase {
        reading,  ///< `done` and `total` are bytes of the PGN file
        sorting,  ///< positions
    };
    Phase phase = Phase::reading;
    std::uint64_t done = 0;
    std::uint64_t total = 0;
};

/// How an index is made.
struct IndexOptions {
    unsigned jobs = 0;  ///< threads; 0 for one on each core
    /// Called now and then by any of the threads, by one at a time.
    std::function<void(const IndexProgress&)> on_progress{};
    std::stop_token stop{};
};

/// The making of an index was stopped from outside; what was there before is there still.
class IndexStopped : public std::runtime_error {
public:
    IndexStopped() : std::runtime_error("stopped") {}
};

/// Makes the index of a PGN file, or brings one up to date whose file has grown.
///
/// Threads take parts of the file in turn, read their games and replay them; what they find is put together
/// in the order of the file and written while others read on. When all is read, the positions, which lie in
/// heaps, are sorted by the same number of threads. The manifest comes last: until then nobody sees any of
/// it.
///
/// Memory: a few megabytes a thread for the part that it reads, 64 for the heaps' blocks, 64 for remembered
/// texts; while sorting, 28 bytes for each position of the heaps at work.
class IndexBuilder {
public:
    /// REQUIRES: the place's lock is held; place and source outlive the builder.
    IndexBuilder(const IndexPlace& place, const SourceFile& source, IndexOptions options);

    /// The index of the whole file. Throws IndexStopped, and std::runtime_error with the reason.
    IndexManifest build();

    /// Adds what stands behind the games of an index. REQUIRES: the file is the manifest's, only longer, and
    /// the last game of it had a result.
    IndexManifest append(IndexManifest manifest);

private:
    struct Reading;

    void index_from(IndexManifest& manifest, std::uint64_t offset, std::uint32_t first_game);
    void read_parts(Reading& reading);
    void read_part(Reading& reading, std::size_t number);
    std::string free_name(const IndexManifest& manifest) const;

    const IndexPlace& m_place;
    const SourceFile& m_source;
    const IndexOptions m_options;
    const unsigned m_jobs;
};

}  // namespace velmora
