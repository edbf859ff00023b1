#pragma once

#include <cstdint>

#include "game/block_reader.h"

namespace velmora {

/// Whether the reader stands ahead of `[Event "`, with which nearly every game begins.
bool stands_before_event_tag(BlockReader& reader);

/// Finds where the next game of a PGN file begins: at the next "[", or, after a damaged game, at a place that
/// is not the rest of that game.
///
/// Apart from the cutter because the two have different questions: what belongs to this game, and where,
/// after a fault, does trustworthy text begin again. The first "[" would do for that only in games without
/// annotations, which begin with one as well.
class GameFinder {
public:
    /// REQUIRES: `reader` outlives the finder.
    explicit GameFinder(BlockReader& reader) : m_reader(reader) {}

    /// Brings the reader to the "[" of the next game; false at the end of the file.
    bool find();

    /// Told by whoever reads a game at the spot of the fault, the reader standing behind what it read.
    void skip_damaged_moves() { m_search = Search::bracket_on_line; }
    void skip_damaged_header() { m_search = Search::behind_header; }
    /// `opened` is the offset behind the opening brace: a game that the open comment has swallowed is found
    /// again by its event tag.
    void skip_damaged_comment(std::uint64_t opened);

    /// Forgets the damaged game, for a reader that was moved to another place.
    void restart() { m_search = Search::any_bracket; }

private:
    enum class Search { any_bracket, bracket_on_line, behind_header, event_in_comment };

    bool find_bracket();
    bool find_bracket_on_line();
    bool find_event_in_comment();
    void go_to_line_start();
    bool stands_before_bracket();

    BlockReader& m_reader;
    Search m_search = Search::any_bracket;
    std::uint64_t m_comment_begin = 0;
    std::uint64_t m_comment_end = 0;
};

}  // namespace velmora
