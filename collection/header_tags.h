#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace velmora {

/// The tags that a collection keeps of a game; by these numbers they stand in HeaderTags.
enum class Tag : std::size_t {
    event,
    site,
    date,
    round,
    white,
    black,
    result,
    white_elo,
    black_elo,
    eco,
    opening,
    variation,
    fen,
    variant,
};
inline constexpr std::size_t tag_count = 14;

/// The header of one game, as far as a collection keeps it: views into the game's text, as they stand between
/// the quotes. Of a name that stands twice the first one counts.
class HeaderTags {
public:
    /// Reads the tags at the front of a game's text and returns how many bytes the header has.
    ///
    /// Comments, blank lines and lines that a "%" escapes may stand between the tags. A value without its
    /// closing quote ends with its line.
    std::size_t read(std::string_view text);

    /// Empty for a tag that isn't there.
    std::string_view operator[](Tag tag) const { return m_values[static_cast<std::size_t>(tag)]; }

private:
    std::size_t read_tag(std::string_view text);

    std::array<std::string_view, tag_count> m_values;
};

/// Whether a tag begins here: a bracket, a name, a quote.
///
/// More than the bracket is asked for because annotations, damaged games and binary files have brackets, too.
bool begins_tag(std::string_view text);

/// A tag's value as a list shows it: at most 255 bytes, escapes of quotes and backslashes undone, control
/// characters as blanks, trimmed. A text that is no UTF-8 is taken for Latin-1, in which old files are.
std::string shown_value(std::string_view value);

}  // namespace velmora
