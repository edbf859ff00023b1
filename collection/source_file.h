#pragma once

#include <cstdint>
#include <string>

#include "base/regular_file.h"

namespace velmora {

/// The PGN file of a collection, open for reading, and how it is told whether it is still the one that was
/// indexed.
class SourceFile {
public:
    /// What is kept of a file to know it again.
    struct Stamp {
        std::uint64_t size = 0;
        std::int64_t modified_ns = 0;
        std::uint64_t digest = 0;  ///< of samples of these `size` bytes
        friend bool operator==(const Stamp&, const Stamp&) = default;
    };

    /// Throws std::runtime_error with path and reason for what can't be read, for a file in UTF-16, and for
    /// one that begins with zero bytes and no game.
    ///
    /// A binary file has brackets like any other, and would be a list of games that nobody can read.
    explicit SourceFile(const std::string& path);

    int descriptor() const { return m_file.descriptor(); }
    std::uint64_t size() const { return m_stamp.size; }

    /// Of the file as it was opened.
    const Stamp& stamp() const { return m_stamp; }

    /// The digest of samples of the first `size` bytes.
    ///
    /// A file of up to 4 MiB is taken whole; of a larger one 256 samples do, since reading gigabytes again
    /// would take as long as half an index. A changed file has nearly always another size or time as well.
    /// The last bytes are among the samples: a file that only grew is known by them.
    std::uint64_t digest(std::uint64_t size) const;

    /// Whether nobody has written to the file since it was opened, as far as size and time tell, but for
    /// appending to it, which leaves what has been read as it is.
    bool is_unchanged() const;

private:
    std::string m_path;
    RegularFile m_file;
    Stamp m_stamp;
};

}  // namespace velmora
