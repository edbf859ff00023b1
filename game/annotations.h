#pragma once

#include <string>
#include <string_view>

namespace velmora {

/// A comment without its "[%...]" annotations, without line feeds, and without blanks, tabs and semicolons at
/// its end. An annotation ends at the first "]" that isn't within double quotes.
std::string without_annotations(std::string_view comment);

/// A comment as the user may have typed it, so that it can be read back from a file: braces, which would end
/// it, become parentheses; a line doesn't begin with a percent sign, which would be skipped; and it is cut to
/// a length that makes no game unreadable.
std::string comment_from_user(std::string_view text);

}  // namespace velmora
