#pragma once

#include <string>
#include <string_view>

namespace velmora {

/// Breaks movetext into lines of 80 columns, at blanks and ahead of "[%".
///
/// A blank at a break becomes the line end, so that offsets stay true; the line end ahead of a "[%" is one
/// more character. A "[%...]" is never broken inside, a word or annotation that is longer than a line passes
/// whole.
///
/// Done behind the writer, on the finished line, so that the writer knows of no columns and notes its
/// offsets once. Annotations stay whole, so that a reader that goes by lines finds them.
std::string wrap_movetext(std::string_view text);

}  // namespace velmora
