#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// One "[%name value]" of a comment, blanks around the value cut.
struct CommentAnnotation {
    std::string_view name;
    std::string_view value;
};

/// A comment as it is shown: what a person wrote apart from what programs noted.
struct CommentParts {
    std::string text;                            ///< blanks and line ends in a row are one blank
    std::vector<CommentAnnotation> annotations;  ///< in their order; point into the comment
};

/// Takes a comment apart. What begins like an annotation and never ends counts as one, up to the comment's
/// end.
CommentParts split_comment(std::string_view comment);

/// "[%clk 0:05:12]", what is left on the clock: "0:05:12". Empty for what is no time of a clock.
std::string clock_text(std::string_view value);

/// "[%emt 0:00:05.2]", what the move took: "5.2s", from a minute on "1:05", from an hour on "1:00:05". Hours
/// and minutes may be missing. Empty for what can't be read.
std::string elapsed_text(std::string_view value);

/// "[%eval 0.35]", "[%eval #-3]", a depth behind a comma left out: "+0.35", "#-3"; "mate -3", as engines say
/// it, is "#-3" too. In pawns of White's view. Empty for what can't be read.
std::string evaluation_text(std::string_view value);

}  // namespace velmora
