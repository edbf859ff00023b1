#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "collection/game_columns.h"
#include "collection/source_file.h"

namespace velmora {

/// What an index consists of: the one small file whose replacement makes a new state of the index visible.
///
/// All else is written ahead of it and never changed in place below the counts that stand here, so at any
/// moment there is the old state or the new one. A text with a checksum in its last line.
struct IndexManifest {
    /// A file of sorted positions, and how many games it has; the files follow each other.
    struct Segment {
        std::string file;
        std::uint32_t games = 0;
    };

    std::string path;  ///< of the PGN file
    SourceFile::Stamp source;
    std::string directory;         ///< name of the one with the index's files
    std::uint64_t read_to = 0;     ///< offset behind the last game
    bool ends_with_result = true;  ///< else that game may go on in what is appended
    std::uint32_t games = 0;
    std::uint32_t texts = 1;
    std::array<std::uint32_t, remark_count> remarks{};  ///< games by their remark
    std::vector<Segment> segments;

    std::string to_text() const;
    /// Nothing for a text that is no manifest of this version, or a damaged one.
    static std::optional<IndexManifest> from_text(std::string_view text);
};

}  // namespace velmora
