#include "game/foreign/foreign_tokens.h"

#include <algorithm>

#include "game/foreign/encoding.h"

namespace velmora {

namespace {

constexpr std::string_view between_tokens = " \t\n\v\f\r";
constexpr std::string_view ends_word = " \t\n\v\f\r{}();[]<>$*";
constexpr std::string_view ellipsis = "\u2026";

bool is_decimal(char c) { return c >= '0' && c <= '9'; }

/// Whether "(Q)" and the like stand at a place: a promotion and no variation.
bool is_promotion_in_parentheses(std::string_view rest) {
    return rest.size() >= 3 && rest[0] == '(' && rest[2] == ')' &&
           std::string_view("QRBNqrbn").find(rest[1]) != std::string_view::npos;
}

}  // namespace

ForeignTokens::ForeignTokens(std::string_view text, std::size_t begin)
    : m_text(text), m_at(begin), m_last_angle(text.rfind('>')) {}

bool ForeignTokens::is_escaped_line() const {
    return m_text[m_at] == '%' && (m_at == 0 || m_text[m_at - 1] == '\n');
}

void ForeignTokens::skip_between() {
    while (m_at < m_text.size()) {
        if (is_escaped_line()) {
            m_at = std::min(m_text.find('\n', m_at), m_text.size());
        } else if (between_tokens.find(m_text[m_at]) != std::string_view::npos) {
            ++m_at;
        } else if (!skip_number()) {
            return;
        }
    }
}

/// Digits that begin neither a result nor castling, and points.
bool ForeignTokens::skip_number() {
    const auto rest = m_text.substr(m_at);
    if (rest.front() == '.') {
        ++m_at;
        return true;
    }
    if (rest.starts_with(ellipsis)) {
        m_at += ellipsis.size();
        return true;
    }
    if (!is_decimal(rest.front()) || result_at(rest)) return false;
    const auto end = std::min(rest.find_first_not_of("0123456789"), rest.size());
    if (rest.front() == '0' && end < rest.size()) {
        const auto behind = first_character(rest.substr(end));
        if (behind.character == '-' || plain_form(behind.character) == '-') return false;
    }
    if (rest.substr(0, end) == "0000") return false;
    m_at += end;
    return true;
}

ForeignToken ForeignTokens::next() {
    skip_between();
    if (m_at == m_text.size()) return {ForeignToken::Kind::end, m_at, {}, {}};
    const auto rest = m_text.substr(m_at);
    switch (rest.front()) {
        case '{':
            return comment('}');
        case '<':
            if (m_last_angle != std::string_view::npos && m_at < m_last_angle) return comment('>');
            break;
        case ';':
            return line_comment();
        case '(':
            return run(ForeignToken::Kind::variation_open, m_at + 1);
        case ')':
            return run(ForeignToken::Kind::variation_close, m_at + 1);
        case '$':
            return run(ForeignToken::Kind::glyph,
                       std::min(m_text.find_first_not_of("0123456789", m_at + 1), m_text.size()));
        default:
            break;
    }
    if (const auto result = result_at(rest)) {
        auto token = run(ForeignToken::Kind::result, m_at + result.size);
        token.result = result.strict;
        return token;
    }
    return run(ForeignToken::Kind::word, word_end());
}

ForeignToken ForeignTokens::run(ForeignToken::Kind kind, std::size_t end) {
    ForeignToken token{kind, m_at, m_text.substr(m_at, end - m_at), {}};
    m_at = end;
    return token;
}

ForeignToken ForeignTokens::comment(char closing) {
    const auto begin = m_at;
    const auto end = m_text.find(closing, begin);
    const bool is_closed = end != std::string_view::npos;
    m_at = is_closed ? end + 1 : m_text.size();
    return {ForeignToken::Kind::comment,
            begin,
            m_text.substr(begin + 1, (is_closed ? end : m_text.size()) - begin - 1),
            {},
            is_closed};
}

ForeignToken ForeignTokens::line_comment() {
    const auto begin = m_at;
    m_at = std::min(m_text.find('\n', begin), m_text.size());
    return {ForeignToken::Kind::line_comment, begin, m_text.substr(begin + 1, m_at - begin - 1), {}};
}

/// At least one character, so that a stray bracket is a word of its own.
std::size_t ForeignTokens::word_end() const {
    auto end = std::min(m_text.find_first_of(ends_word, m_at + 1), m_text.size());
    if (end < m_text.size() && m_text[end] == '(' && is_promotion_in_parentheses(m_text.substr(end)) &&
        (m_text[end - 1] == '1' || m_text[end - 1] == '8' || m_text[end - 1] == '=')) {
        end = std::min(m_text.find_first_of(ends_word, end + 3), m_text.size());
    }
    // A result may be glued to a mark.
    const auto word = m_text.substr(m_at, end - m_at);
    for (auto mark = word.find_first_of("!?#+"); mark < word.size();
         mark = word.find_first_of("!?#+", mark + 1)) {
        if (result_at(m_text.substr(m_at + mark + 1))) return m_at + mark + 1;
    }
    return end;
}

}  // namespace velmora
