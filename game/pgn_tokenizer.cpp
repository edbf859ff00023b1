#include "game/pgn_tokenizer.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "game/pgn_limits.h"

namespace velmora {

namespace {

/// What a character begins.
enum class Begins : std::uint8_t { nothing, san, digits, single, tag, comment, nag, result_or_digits, star };

constexpr auto beginnings = [] {
    std::array<Begins, 256> table{};
    const auto set = [&table](std::string_view characters, Begins what) {
        for (const char c : characters) table[static_cast<unsigned char>(c)] = what;
    };
    for (unsigned char c = 'a'; c <= 'z'; ++c) table[c] = Begins::san;
    for (unsigned char c = 'A'; c <= 'Z'; ++c) table[c] = Begins::san;
    set("#+-:=_", Begins::san);
    set("23456789", Begins::digits);
    set("01", Begins::result_or_digits);
    set("*", Begins::star);
    set("().]}>", Begins::single);
    set("[", Begins::tag);
    set("{<", Begins::comment);
    set("$", Begins::nag);
    return table;
}();

Begins beginning(char c) { return beginnings[static_cast<unsigned char>(c)]; }

bool is_digit(char c) { return c >= '0' && c <= '9'; }

/// The characters of a move. Digits belong to it, but never begin it.
constexpr auto in_san = [] {
    std::array<bool, 256> table{};
    for (std::size_t c = 0; c < table.size(); ++c) table[c] = beginnings[c] == Begins::san;
    for (unsigned char c = '0'; c <= '9'; ++c) table[c] = true;
    return table;
}();

bool is_san(char c) { return in_san[static_cast<unsigned char>(c)]; }

bool is_ascii(char c) { return static_cast<unsigned char>(c) < 0x80; }

/// Whether cleaning changes a text for this character.
bool needs_cleaning(char c) { return !is_ascii(c) || c == '\n' || c == '\r' || c == '\t'; }

}  // namespace

std::span<const MoveToken> PgnTokenizer::tokenize(std::string_view text) {
    m_count = 0;
    m_cleaned.clear();
    m_cleaned.reserve(text.size());  // a cleaned text is never longer than its source
    m_text = text;
    for (std::size_t at = 0; at < text.size();) {
        // Told apart here because nearly all tokens are moves: the branches are foreseen, a jump table is
        // not.
        const auto what = beginning(text[at]);
        if (what == Begins::nothing) {
            ++at;
        } else if (what == Begins::san) {
            at = emit_run(TokenKind::san, at, is_san);
        } else {
            at = read_token(at);
        }
    }
    return std::span(m_tokens).first(m_count);
}

std::size_t PgnTokenizer::read_token(std::size_t at) {
    switch (beginning(m_text[at])) {
        case Begins::nothing:
            return at + 1;
        case Begins::san:
            return emit_run(TokenKind::san, at, is_san);
        case Begins::digits:
            return emit_run(TokenKind::integer, at, is_digit);
        case Begins::single:
            emit_single(m_text[at]);
            return at + 1;
        case Begins::tag:
            return read_tag(at);
        case Begins::comment:
            return read_comment(at);
        case Begins::nag:
            return emit_run(TokenKind::nag, at, is_digit);
        case Begins::star:
            return emit_result("*");
        case Begins::result_or_digits:
            break;
    }
    for (const std::string_view result : {"1-0", "0-1", "1/2-1/2"}) {
        if (m_text.substr(at, result.size()) == result) return emit_result(result);
    }
    return emit_run(TokenKind::integer, at, is_digit);
}

/// The first place from `at` on whose character is wanted, or the end of the text.
template <class Wanted>
std::size_t PgnTokenizer::find(std::size_t at, Wanted wanted) const {
    while (at < m_text.size() && !wanted(m_text[at])) ++at;
    return at;
}

/// A token of the character at `at` and those behind it that belong to it.
template <class Belongs>
std::size_t PgnTokenizer::emit_run(TokenKind kind, std::size_t at, Belongs belongs) {
    const auto end = find(at + 1, [belongs](char c) { return !belongs(c); });
    emit(kind, m_text.substr(at, end - at));
    return end;
}

void PgnTokenizer::emit_single(char c) {
    switch (c) {
        case '(':
            return emit(TokenKind::variation_open, "(");
        case ')':
            return emit(TokenKind::variation_close, ")");
        case '.':
            return emit(TokenKind::dot, ".");
        case ']':
            return emit(TokenKind::tag_close, "]");
        default:  // a closing brace or angle bracket
            return emit(TokenKind::comment_close, "}");
    }
}

/// A result ends the scan.
std::size_t PgnTokenizer::emit_result(std::string_view result) {
    emit(TokenKind::result, result);
    return m_text.size();
}

std::size_t PgnTokenizer::read_tag(std::size_t at) {
    const auto is_no_blank = [](char c) { return c != ' '; };
    emit(TokenKind::tag_open, "[");
    const auto name_begin = find(at + 1, is_no_blank);
    const auto name_end = find(name_begin, [](char c) { return c == ' ' || c == '"'; });
    const auto name_size = name_end - name_begin;
    emit(TokenKind::tag_name, m_text.substr(name_begin, name_size));

    // The place counts from the bracket and leaves out blanks ahead of the name: "[ White "x"]" has the value
    // "e ".
    auto begin = find(at + 1 + name_size, is_no_blank);
    // Some programs quote a nickname twice, [White ""Deep""]; but of an empty value the second quote is its
    // end.
    const auto is_empty_value = [&](std::size_t quote) {
        const auto behind = find(quote + 1, is_no_blank);
        return behind < m_text.size() && m_text[behind] == ']';
    };
    for (int quotes = 0; begin < m_text.size() && m_text[begin] == '"'; ++quotes) {
        if (quotes > 0 && is_empty_value(begin)) break;
        begin = find(begin + 1, is_no_blank);
    }
    auto end = std::min(m_text.find('"', begin), m_text.size());
    while (end < m_text.size() && m_text[end - 1] == '\\')
        end = std::min(m_text.find('"', end + 1), m_text.size());
    emit(TokenKind::tag_value, cleaned(m_text.substr(begin, end - begin), pgn_limits::tag_value));
    return end + 1;
}

/// Braces don't nest (section 5 of the PGN standard): the first closing one ends the comment.
std::size_t PgnTokenizer::read_comment(std::size_t at) {
    const char other_end = m_text[at] == '<' ? '>' : '}';
    emit(TokenKind::comment_open, "{");
    const auto end = find(at + 1, [other_end](char c) { return c == '}' || c == other_end; });
    emit(TokenKind::comment, cleaned(m_text.substr(at + 1, end - at - 1), pgn_limits::pasted_comment));
    return end;
}

std::string_view PgnTokenizer::cleaned(std::string_view raw, std::size_t limit) {
    raw = raw.substr(0, limit);
    if (std::none_of(raw.begin(), raw.end(), needs_cleaning)) return raw;
    const auto begin = static_cast<std::ptrdiff_t>(m_cleaned.size());
    if (std::all_of(raw.begin(), raw.end(), is_ascii)) {
        m_cleaned += raw;
    } else {
        m_cleaned += text::valid_utf8(raw);
    }
    m_cleaned.erase(std::remove(m_cleaned.begin() + begin, m_cleaned.end(), '\r'), m_cleaned.end());
    std::replace_if(
        m_cleaned.begin() + begin, m_cleaned.end(), [](char c) { return c == '\n' || c == '\t'; }, ' ');
    return std::string_view(m_cleaned).substr(static_cast<std::size_t>(begin));
}

}  // namespace velmora
