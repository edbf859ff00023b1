#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "game/pgn_limits.h"

namespace velmora {

/// The index behind the annotation that begins at `at`, or the length of the comment. It ends at the first
/// "]" that isn't within double quotes.
std::size_t end_of_annotation(std::string_view comment, std::size_t at);

/// A comment without its "[%...]" annotations, without line feeds, and without blanks, tabs and semicolons at
/// its end. An annotation ends at the first "]" that isn't within double quotes.
///
/// The "[%eval ...]", "[%clk ...]" and the like inside comments are a convention on top of the PGN
/// standard, in which they are plain text; so they are handled as text, and one that nobody knows
/// survives.
std::string without_annotations(std::string_view comment);

/// A comment as a file can hold it to be read back: braces, which would end it, become parentheses, control
/// characters other than tabs and line feeds blanks; no line begins with a percent sign, which would be
/// skipped. One that is longer than `limit` in a file, where each "[%" may bring a line end, loses its oldest
/// annotations behind the evaluation first, then its end.
///
/// The standard (section 5) has no way to escape a brace within a comment, so it has to become something
/// else. Annotations go before words do: they are figures of an engine, while what a person has written
/// can't be had again.
std::string readable_comment(std::string_view comment, std::size_t limit = pgn_limits::comment);

/// Whether readable_comment() changes nothing.
///
/// Asked at every comment that is printed, of which nearly all need no change and then no copy either.
bool is_readable_comment(std::string_view comment);

/// A comment as the user may have typed it, made readable and cut to the length of one's own.
std::string comment_from_user(std::string_view text);

/// One value of an annotation that the program makes of an engine's word: nothing in it ends the annotation.
std::string annotation_value(std::string_view word);

/// The text that ends a game: the result's word, and ahead of it a comment in braces where there is one.
/// @param comment  words of the referee or an engine, with or without braces around them
std::string ending_text(std::string_view comment, std::string_view result);

}  // namespace velmora
