#pragma once

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Word-by-word reading and the few text forms that the whole program shares.
///
/// Blanks are ' ' alone; white space is blank, tab, line feed, vertical tab, form feed and carriage return,
/// as formatted stream input has it. Nothing here looks at the locale.
///
/// A user's locale may write 0,5; an engine, a book or a PGN file never does. So numbers go through the
/// character conversions, which know of no locale, and the program doesn't depend on what the toolkit sets
/// at its start.
namespace velmora::text {

constexpr std::string_view white_space = " \t\n\v\f\r";

/// Reads a line word by word, in the manner of formatted stream input: white space ahead of a word is
/// skipped, and what cannot be read leaves an empty word or a zero.
///
/// The lines of UCI, of FEN and of the channel are all words between blanks; this reads them without
/// copies and without the price of constructing a stream for each line, of which an engine sends
/// thousands.
class WordReader {
public:
    explicit WordReader(std::string_view line) : m_rest(line) {}

    /// The next word, empty at the end.
    std::string_view word();

    /// The next number. Reads as far as the characters fit, like a stream; a word that does not begin with a
    /// number gives nothing and is not consumed. A number too large for T gives nothing and is consumed.
    template <std::integral T>
    std::optional<T> integer();

    /// The next number as a double, decimal point whatever the locale; nothing when the word begins
    /// otherwise.
    std::optional<double> real();

    /// All that has not been read, leading blanks included.
    std::string_view rest() const { return m_rest; }

private:
    void skip_white_space();
    std::optional<std::int64_t> signed_integer();
    std::optional<std::uint64_t> unsigned_integer();

    std::string_view m_rest;
};

/// The first word of a line, empty when it has none.
std::string_view first_word(std::string_view line);

std::string_view trim_blanks(std::string_view text);
std::string_view trim_leading_blanks(std::string_view text);
std::string_view trim_white_space(std::string_view text);

/// The words of a text.
std::vector<std::string_view> words(std::string_view text);

/// Words joined by single blanks.
std::string join(const std::vector<std::string_view>& words);

/// ASCII's, the delete character among them. Not those of a locale, some of which count bytes of a UTF-8
/// character among them.
constexpr bool is_control(char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; }

std::string underscores_to_blanks(std::string_view text);

/// Line feeds and carriage returns become blanks, so that any text fits into one line of the channel.
std::string one_line(std::string_view text);

/// The whole text as a decimal integer, an optional sign ahead of it; nothing when any other character stands
/// in it or the number does not fit.
template <std::integral T>
std::optional<T> strict_integer(std::string_view text);

/// A number as a stream prints it by default: up to six significant digits, "0.34", "1e+06", "-0.5".
std::string default_form(double number);

/// A log stamp from whole milliseconds: five digits of seconds modulo 65536, a point, three digits.
///
/// Of fixed width, so that the columns of a log stand below each other.
std::string log_stamp(std::uint64_t milliseconds);

/// Every byte that is not part of well-formed UTF-8 becomes "?". The rule accepts a lead byte followed by its
/// number of continuation bytes, two to four bytes in all.
///
/// Old PGN files are in Latin-1 or worse, and the toolkit refuses a text with one bad byte as a whole.
std::string valid_utf8(std::string_view text);

/// The first `limit` bytes, up to three fewer where the cut would fall into a character.
std::string_view utf8_prefix(std::string_view text, std::size_t limit);

/// Words of an engine or a file as they may enter a game's record: at most `limit` bytes, cut at a character.
/// A control character becomes a blank, a brace, which would begin or end a comment, a parenthesis, and a
/// byte that is no UTF-8 a "?".
///
/// An engine names itself and its reasons in any words it likes; unchanged, one brace among them would
/// make the rest of an archive unreadable.
std::string record_text(std::string_view text, std::size_t limit);

/// valid_utf8() with a "?" for each zero byte too, which no widget takes. As many bytes as before. Since
/// the length stays, offsets into the text are good for the original, too.
std::string displayable(std::string_view text);

}  // namespace velmora::text

#include "base/text_inline.h"
