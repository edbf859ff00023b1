#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "game/foreign/result_word.h"

namespace velmora {

/// One part of a foreign game's movetext.
struct ForeignToken {
    enum class Kind : std::uint8_t {
        end,
        comment,       ///< text: what stands between the braces
        line_comment,  ///< text: what stands behind the semicolon
        variation_open,
        variation_close,
        glyph,  ///< text: "$" and digits
        result,
        word,  ///< text: anything else between blanks, move numbers and points taken off
    };

    Kind kind = Kind::end;
    std::size_t offset = 0;  ///< of its first byte
    std::string_view text;
    std::string_view result;  ///< as PGN has it, of a result
    bool is_closed = true;    ///< of a comment
};

/// Cuts movetext in UTF-8 into tokens, in one pass and without giving up anything but blanks, move numbers,
/// points and lines that begin with "%".
///
/// Apart from the strict reader's tokenizer because the questions differ: that one skips what it doesn't
/// know, while here every byte has to end up somewhere.
class ForeignTokens {
public:
    /// @param begin  where the movetext begins in `text`, which outlives the tokens
    ForeignTokens(std::string_view text, std::size_t begin);

    /// The next token; at the end of the text again and again one of the kind `end`.
    ForeignToken next();

private:
    void skip_between();
    bool skip_number();
    bool is_escaped_line() const;
    ForeignToken comment(char closing);
    ForeignToken line_comment();
    ForeignToken run(ForeignToken::Kind kind, std::size_t end);
    std::size_t word_end() const;

    std::string_view m_text;
    std::size_t m_at;
    std::size_t m_last_angle;  // the last ">" of the text; behind it "<" opens nothing
};

}  // namespace velmora
