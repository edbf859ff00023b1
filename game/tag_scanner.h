#pragma once

#include <cstdint>
#include <istream>
#include <optional>
#include <string>
#include <string_view>

#include "game/block_reader.h"
#include "game/tag_line.h"

namespace velmora {

/// The seven roster tags of the first header of a stream: lines ahead of the first "[" are skipped. Reads
/// from the stream's beginning, no further than the line behind the header.
TagPairs first_tags(std::istream& stream);

/// The same for the next header, which begins at a line with a "[" and the word "Event". Nothing at the end.
TagPairs next_tags(std::istream& stream);

/// One header of a file: its seven roster tags, and where its first "[" stands.
struct GameHeader {
    std::uint64_t offset = 0;
    TagPairs tags;

    /// The value of the first tag of that name, empty when there is none.
    std::string_view tag(std::string_view name) const;
};

/// Lists the games of a file of any size by their headers, as first_tags() and next_tags() do, without
/// looking at moves.
///
/// Meant to be run piecewise, on a thread of its own if need be: next() reads up to the end of one header,
/// position() and file_size() tell how far it is. Not for two threads at once.
///
/// Movetext is passed over in searches for one word, which costs less than cutting games. The price is
/// that the list may show a game that the cutter finds damaged; that is told when somebody opens it.
class TagScanner {
public:
    /// A file that can't be opened has no headers.
    explicit TagScanner(const std::string& path);

    bool is_open() const { return m_reader.is_open(); }

    /// Reads the next header; false at the end of the file. The memory of `header` is used again.
    bool next(GameHeader& header);

    std::uint64_t position() const { return m_reader.offset(); }
    std::uint64_t file_size() const { return m_reader.file_size(); }

private:
    std::optional<std::string_view> find_first_line();
    std::optional<std::string_view> find_event_line();
    std::optional<std::string_view> read_line();

    BlockReader m_reader;
    bool m_started = false;
    std::uint64_t m_line_offset = 0;  // of the line that was read last
};

}  // namespace velmora
