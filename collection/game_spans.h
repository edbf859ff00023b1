#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace velmora {

/// A stretch of bytes that begins with a game and ends, at the latest, where another one surely begins.
struct GameSpan {
    std::uint64_t offset = 0;  ///< in the file, of the first byte
    std::string_view text;     ///< valid until the next call
    bool is_cut = false;       ///< the game goes on behind the text, which has GameSpans::longest bytes
};

/// Walks over the games of one part of a PGN file, for threads that share a file among them.
///
/// A game begins at a tag, and a line that begins with `[Event "` begins one whatever stands ahead of it:
/// that is the one place that can be told from the middle of a file, so all parts agree on who has which
/// game, however many parts there are. It is also where the reader of single games looks for the next one
/// behind a damaged one.
///
/// A part is the bytes from `begin` to `end`. It has the games from its first such line (the part at the
/// front of the file: from its first tag) up to the first such line behind its end, and reads beyond its end
/// for that.
class GameSpans {
public:
    /// More of one game isn't read: no game has a tenth of it (a million plies have some 10 MB), and memory
    /// must stay bounded in a file that is no PGN.
    static constexpr std::size_t longest = std::size_t{32} << 20;

    /// Whether the bytes from `begin` on are looked at from the first one, as behind a game that has ended,
    /// or from the first line that surely begins a game.
    enum class Front { any_tag, event_line };

    /// REQUIRES: `descriptor` stays open. Reads up to `file_size`, or less where the file ends earlier.
    GameSpans(int descriptor, std::uint64_t begin, std::uint64_t end, std::uint64_t file_size, Front front);

    /// The next game; nothing behind the last one of the part. Throws std::system_error when reading fails.
    std::optional<GameSpan> next();

    /// Tells how many bytes of the last span its game has; the next game is looked for behind these.
    void consume(std::size_t count) { m_at += count; }

    /// The file has ended ahead of `file_size`.
    bool fell_short() const { return m_fell_short; }

private:
    std::size_t find_border(std::size_t from);
    bool go_to_first_game();
    bool find_tag();
    bool read_more();
    bool stands_at_border() const;

    const int m_descriptor;
    const std::uint64_t m_part_end;
    std::uint64_t m_file_size;
    std::vector<char> m_bytes;
    std::uint64_t m_offset;      // of m_bytes[0] in the file
    std::size_t m_size = 0;      // of the bytes at hand
    std::size_t m_at = 0;        // of the next byte to look at
    std::size_t m_border = 0;    // of the next line that begins a game, when m_has_border
    std::size_t m_searched = 0;  // up to here no such line begins behind m_at
    bool m_has_border = false;
    bool m_started;
    bool m_fell_short = false;
};

}  // namespace velmora
