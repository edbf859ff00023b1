#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

enum class TokenKind : std::uint8_t {
    tag_open = 0,
    tag_close = 1,
    tag_name = 2,
    tag_value = 3,
    integer = 5,
    san = 6,
    dot = 7,
    comment_open = 8,
    comment_close = 9,
    comment = 10,
    variation_open = 11,
    variation_close = 12,
    nag = 15,
    result = 16,
};

/// One token: its kind and its text, a view into the game's text or into the tokenizer.
struct MoveToken {
    TokenKind kind = TokenKind::san;
    std::string_view text;

    bool operator==(const MoveToken&) const = default;
};

/// Cuts the text of one game into tokens, from the first character to a result or the end of the text.
///
/// It takes anything: what is no token is skipped, so the suffixes "!" and "?" vanish, and the words behind a
/// ";" are read as moves. Moves aren't checked. Angle brackets are comments.
class PgnTokenizer {
public:
    /// Longer tag values and comments are cut to this many bytes.
    static constexpr std::size_t tag_value_limit = 100;
    static constexpr std::size_t comment_limit = 2048;

    /// The tokens of `text`. The views hold until the next call, or until `text` goes.
    const std::vector<MoveToken>& tokenize(std::string_view text);

    /// Drops the tokens, keeps the memory.
    void clear();

private:
    void read_token();
    void read_tag();
    void read_comment(bool opened_by_angle);
    void read_digits();
    bool read_result();
    void emit(TokenKind kind, std::size_t length);
    void emit_text(TokenKind kind, std::string_view text) { m_tokens.push_back({kind, text}); }
    std::string_view cleaned(std::string_view raw, std::size_t limit);

    std::string_view m_text;
    std::size_t m_at = 0;  // the next character; behind the text when a result ended the scan
    std::vector<MoveToken> m_tokens;
    std::string m_cleaned;  // cleaned texts, one behind the other; reserved ahead, so that views stay true
};

}  // namespace velmora
