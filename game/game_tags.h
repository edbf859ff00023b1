#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "chess/board/side.h"

namespace velmora {

/// Tags by name and value, in their order.
using TagList = std::vector<std::pair<std::string, std::string>>;

/// The tags of a game in the order in which they were first set, and what the FEN tag says of its start.
///
/// The seven tag roster (PGN standard, 8.1.1) comes first and in its order, because reset() sets it so; a
/// file's own tags follow as they came. A file's tags stand in one short list: an index sorted by name
/// beside it finds a tag without a map's memory for each.
class GameTags {
public:
    static constexpr std::string_view standard_fen =
        "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";

    /// The seven tags of every game, all unknown.
    GameTags() { reset(); }

    /// The tags of a header's text and no others, values cut to 100 bytes, for callers that want faults told:
    /// a value that is no UTF-8 throws std::logic_error.
    explicit GameTags(std::string_view header);

    void reset();

    /// Sets a value. "FEN" also sets fen(), start_color() and start_move_number().
    void set(std::string_view name, std::string_view value);

    /// The value; empty for a name that is not there.
    std::string get(std::string_view name) const;
    bool contains(std::string_view name) const;

    /// The names in the order in which they print.
    std::vector<std::string> order() const;

    /// One line `[Name "value"]` for each tag. Values stand as they were set, nothing is escaped, but what
    /// would make the game unreadable is changed: a name or value that is too long is cut at a character, and
    /// no control character, bracket ahead of digits or backslash at the end is left.
    ///
    /// Quotes within a value are left as they are because values come out of files with their escapes
    /// still in them; escaping again would add a backslash at every save.
    std::string print() const;
    /// The length of print() in bytes.
    ///
    /// Without printing, since it is asked at every step through a game, to find the movetext behind the
    /// tags.
    std::size_t printed_size() const;

    const std::string& fen() const { return m_fen; }
    /// The side to move in fen().
    Side start_color() const { return m_start_color; }
    std::int32_t start_move_number() const { return m_start_move_number; }

private:
    struct Tag {
        std::string name;
        std::string value;
    };

    std::vector<std::uint32_t>::const_iterator place_of(std::string_view name) const;
    const Tag* find(std::string_view name) const;
    void set_start(std::string_view fen);

    std::vector<Tag> m_tags;               // in order of first insertion
    std::vector<std::uint32_t> m_by_name;  // indexes into m_tags, sorted by name
    std::string m_fen{standard_fen};
    Side m_start_color = Side::white;
    std::int32_t m_start_move_number = 1;
};

/// A name or event as it may go into a tag, so that the value which is read back is the one that was set: a
/// double quote, which would end it, becomes an apostrophe, a control character a blank, a byte that is no
/// UTF-8 a "?", a backslash at the end a slash; it has no blanks at its front and no more bytes than a value
/// may have. For texts of users and engines; values of a file stay as they were read.
std::string tag_safe(std::string_view text);

}  // namespace velmora
