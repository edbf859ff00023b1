#pragma once

#include <cstddef>

/// What a PGN file may hold to be read back whole, in bytes. The reader refuses or cuts what is longer, so
/// the writer never writes it.
///
/// The PGN standard (section 7) allows 255 characters between a tag's quotes and no limit to comments;
/// these are this program's own, and one writer and several readers must agree on them to the byte, so
/// they stand in one place.
namespace velmora::pgn_limits {

/// Between the brackets of a tag, `Name "value"`; a longer one makes the whole game unreadable.
inline constexpr std::size_t tag = 256;
/// Of a tag's value; a longer one is cut.
inline constexpr std::size_t tag_value = 100;
/// Of a tag's name, so that the longest value fits behind it with its blank and its quotes.
inline constexpr std::size_t tag_name = tag - tag_value - 3;

/// Between the braces of a comment in a file; a longer one makes the whole game unreadable. Line ends count.
inline constexpr std::size_t comment = 1024;
/// Of one comment that a person types or that the program makes. The rest is for what is added to it later.
inline constexpr std::size_t own_comment = 900;
/// Of a comment in a text that comes from elsewhere than a file; a longer one is cut.
inline constexpr std::size_t pasted_comment = 2048;

}  // namespace velmora::pgn_limits
