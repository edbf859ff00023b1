#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
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
/// Tag values and comments beyond their limits are cut.
///
/// Forgiving, because the files of the world are not what the standard has: what would be refused here,
/// somebody has in his collection. Whether a token makes sense where it stands is for MoveSection to
/// decide, and whether it is a move for the position.
///
/// Tokens are views, so that a text is copied only where it has to be changed: cleaned texts go into one
/// buffer, whose room is taken ahead, since growing would leave the views pointing at nothing.
class PgnTokenizer {
public:
    /// The tokens of `text`. The views hold until the next call, or until `text` goes.
    std::span<const MoveToken> tokenize(std::string_view text);

private:
    static constexpr std::size_t first_capacity = 256;

    // Each emits what begins at a place of the text and gives the place behind it.
    std::size_t read_token(std::size_t at);
    std::size_t read_tag(std::size_t at);
    std::size_t read_comment(std::size_t at);
    template <class Wanted>
    std::size_t find(std::size_t at, Wanted wanted) const;
    template <class Belongs>
    std::size_t emit_run(TokenKind kind, std::size_t at, Belongs belongs);
    std::size_t emit_result(std::string_view result);

    void emit_single(char c);
    void emit(TokenKind kind, std::string_view text) {
        if (m_count == m_tokens.size()) m_tokens.resize(2 * m_count + first_capacity);
        m_tokens[m_count++] = {kind, text};
    }
    std::string_view cleaned(std::string_view raw, std::size_t limit);

    std::string_view m_text;
    std::vector<MoveToken> m_tokens;  // the first m_count are those of the text; the others only hold memory
    std::size_t m_count = 0;
    std::string m_cleaned;  // cleaned texts, one behind the other; reserved ahead, so that views stay true
};

}  // namespace velmora
