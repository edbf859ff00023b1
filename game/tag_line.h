#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velmora {

/// Tag names and values of a header, in the order of the file; a name may stand twice.
using TagPairs = std::vector<std::pair<std::string, std::string>>;

/// Adds the tag of a header line, without its line end, when it is one of the seven of the roster: "Event",
/// "Site", "Date", "Round", "White", "Black", "Result".
///
/// Brackets and double quotes are dropped wherever they stand, an escaped double quote becomes an apostrophe;
/// the first word that is left is the name, the rest the value.
///
/// By lines and not by the tokenizer, since a list of games reads headers only, of files with millions of
/// them, and shows no other tags.
void add_roster_tag(std::string_view line, TagPairs& tags);

/// A line belongs to a header when it holds a "[".
inline bool is_header_line(std::string_view line) { return line.find('[') != std::string_view::npos; }

}  // namespace velmora
