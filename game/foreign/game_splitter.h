#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "game/foreign/source_lines.h"

namespace velmora {

/// The text of one game as it stands in a source, and where.
struct ForeignText {
    std::string text;          ///< from its first line on; of a file in UTF-16 as UTF-8, else bytes
    std::uint64_t offset = 0;  ///< of its first bracket or move in the source, in bytes
    std::uint64_t line = 1;    ///< of the source, from 1
    bool has_result = false;   ///< behind its moves
    bool is_last = false;      ///< the source ends with it
    bool is_utf16 = false;     ///< in the source, as the one who opened it knows
    bool is_too_long = false;  ///< what is behind the first 16 MiB is left out

    /// Without a result the strict reader takes the next game for a part of this one.
    bool runs_into_next() const { return !has_result && !is_last; }
};

/// Divides a source into its games, by lines: a game begins at a tag that stands at the start of a line
/// behind moves or a result, or at a second event tag; without tags, at a line with the move number 1 behind
/// a result.
///
/// Unlike the strict cutter it never gives up a game. What a brace that nobody closes swallows is found again
/// at an event tag behind an empty line.
class GameSplitter {
public:
    /// What a game may begin with that has no game ahead of it.
    enum class Begin : std::uint8_t {
        tag_or_number,  ///< in files, where letters and tables of contents stand ahead of games
        anything,
    };

    static constexpr std::size_t longest_game = std::size_t{1} << 24;

    /// REQUIRES: `source` outlives the splitter.
    GameSplitter(LineSource& source, Begin begin) : m_source(source), m_begin(begin) {}

    /// The next game; false at the end.
    bool next(ForeignText& game);

    /// Forgets the game at hand, for a source that was moved; lines are counted from 1 there.
    void restart();

private:
    enum class State : std::uint8_t { before, header, moves, behind };

    bool begins_game() const;
    bool is_rescued_from_comment() const;
    void start(ForeignText& game);
    void add_line(ForeignText& game);
    void add_header_line(ForeignText& game);
    void scan(std::string_view text, ForeignText& game);
    void go_on();

    LineSource& m_source;
    const Begin m_begin;
    SourceLine m_line;
    std::uint64_t m_number = 1;  // of m_line
    bool m_has_line = false;     // m_line waits to be looked at
    bool m_after_empty = true;   // the line ahead was empty
    State m_state = State::before;
    bool m_has_event = false;
    bool m_in_comment = false;
    std::size_t m_depth = 0;  // of variations
};

}  // namespace velmora
