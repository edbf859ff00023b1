#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "game/block_reader.h"
#include "game/game_finder.h"

namespace velmora {

/// Cuts the text of one game out of a PGN file, and decides when a game is too damaged to be read.
///
/// A game begins at a "[" and ends with a result or the end of the file. Carriage returns and lines that
/// begin with "%" are left out.
///
/// Only the ends of games are looked for, by as few states as do: moves, tags and numbers are the
/// tokenizer's, which sees a game once somebody wants it. Within braces and brackets nothing ends a game,
/// and that is the point of following them; a result is recognised by its characters alone, since "1-0" in
/// movetext stands nowhere else.
///
/// Limits make damage show: a brace that nobody has closed would take all games up to the next brace with
/// it, so a comment that is longer than any real one is a fault, told by pgn_error, and the finder looks
/// for the next game behind its beginning.
class GameCutter {
public:
    /// REQUIRES: `reader` outlives the cutter.
    explicit GameCutter(BlockReader& reader) : m_reader(reader), m_finder(reader) {}

    /// Stores the next game in `text`, nothing at the end of the file. Throws pgn_error.
    void cut(std::string& text);

    /// What the end of the file has cut short.
    enum class Open { nothing, header, tag, movetext, comment };

    /// What of the text that was cut last the end of the file has left open.
    Open left_open() const { return m_left_open; }

    /// Where the game that was cut last begins in the file.
    ///
    /// Lists keep it, to read one game later without those ahead of it.
    std::uint64_t game_offset() const { return m_game_offset; }

    /// Forgets a damaged game, for a reader that was moved to another place.
    void restart() { m_finder.restart(); }

private:
    enum class State { between, movetext, finished };
    enum class Enclosed { tag, comment };

    State end_of_file(Open what);
    State copy_between();
    State copy_movetext();
    State copy_enclosed(Enclosed kind, State behind);
    void copy_plain(const std::array<bool, 256>& specials);
    bool stands_in_result() const;
    State copy_result(char first);
    State copy_result_end();
    bool copy_one_of(std::string_view wanted);
    int next_char();
    [[noreturn]] void fail(std::string_view marker);

    BlockReader& m_reader;
    GameFinder m_finder;
    std::string* m_text = nullptr;  // while cutting
    std::size_t m_looked_at = 0;    // up to here the text was searched for a result
    std::uint64_t m_game_offset = 0;
    Open m_left_open = Open::nothing;
};

}  // namespace velmora
