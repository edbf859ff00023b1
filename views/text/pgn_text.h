#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// The arithmetic of the PGN view, on valid UTF-8.
namespace velmora {

/// The number of bytes up to the end of the word around the character at `at` (in characters), less one. A
/// word begins behind a blank or a newline, and ends before one, or before "(", ")" or "{".
/// In bytes, as the record counts where each move stands in its text.
std::int64_t clicked_offset(std::string_view text, std::size_t at);

/// One text made from another by replacing its middle.
///
/// After a move nearly all of the text is the same. To set a buffer's text anew lays out the whole game and
/// loses the place that is scrolled to; to replace the middle does neither.
struct TextChange {
    std::size_t front = 0;      ///< characters that stay at the front
    std::size_t back = 0;       ///< characters that stay at the back
    std::string_view inserted;  ///< what stands between them then; a part of the new text
};
TextChange change_between(std::string_view before, std::string_view after);

}  // namespace velmora
