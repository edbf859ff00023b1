#include "game/pgn_tokenizer.h"

#include <algorithm>
#include <array>

#include "channel/text.h"

namespace velmora {

namespace {

/// The characters of a move. Digits belong to it, but never begin it.
constexpr auto in_san = [] {
    std::array<bool, 256> table{};
    for (unsigned char c = 'a'; c <= 'z'; ++c) table[c] = true;
    for (unsigned char c = 'A'; c <= 'Z'; ++c) table[c] = true;
    for (unsigned char c = '0'; c <= '9'; ++c) table[c] = true;
    for (const unsigned char c : {'#', '+', '-', ':', '=', '_'}) table[c] = true;
    return table;
}();

bool is_san(char c) { return in_san[static_cast<unsigned char>(c)]; }

bool is_digit(char c) { return c >= '0' && c <= '9'; }

bool is_ascii(std::string_view text) {
    unsigned char all = 0;
    for (const char c : text) all = static_cast<unsigned char>(all | static_cast<unsigned char>(c));
    return all < 0x80;
}

}  // namespace

const std::vector<MoveToken>& PgnTokenizer::tokenize(std::string_view text) {
    clear();
    m_cleaned.reserve(text.size());  // a cleaned text is never longer than its source
    m_text = text;
    m_at = 0;
    while (m_at < m_text.size()) read_token();
    return m_tokens;
}

void PgnTokenizer::clear() {
    m_tokens.clear();
    m_cleaned.clear();
    m_text = {};
}

void PgnTokenizer::read_token() {
    const char c = m_text[m_at];
    switch (c) {
        case '(':
            return emit(TokenKind::variation_open, 1);
        case ')':
            return emit(TokenKind::variation_close, 1);
        case '.':
            return emit(TokenKind::dot, 1);
        case ']':
            return emit(TokenKind::tag_close, 1);
        case '[':
            return read_tag();
        case '{':
        case '<':
            return read_comment(c == '<');
        case '}':
        case '>':
            emit_text(TokenKind::comment_close, "}");
            ++m_at;
            return;
        case '$': {
            const auto digits = m_text.substr(m_at + 1);
            const auto end = std::find_if_not(digits.begin(), digits.end(), is_digit);
            return emit(TokenKind::nag, 1 + static_cast<std::size_t>(end - digits.begin()));
        }
        default:
            break;
    }
    if ((c == '*' || c == '0' || c == '1') && read_result()) return;
    if (is_digit(c)) return read_digits();
    if (!is_san(c)) {
        ++m_at;
        return;
    }
    auto end = m_at + 1;
    while (end < m_text.size() && is_san(m_text[end])) ++end;
    emit(TokenKind::san, end - m_at);
}

void PgnTokenizer::emit(TokenKind kind, std::size_t length) {
    emit_text(kind, m_text.substr(m_at, length));
    m_at += length;
}

bool PgnTokenizer::read_result() {
    for (const std::string_view result : {"*", "1-0", "0-1", "1/2-1/2"}) {
        if (m_text.substr(m_at, result.size()) != result) continue;
        emit_text(TokenKind::result, result);
        m_at = m_text.size();
        return true;
    }
    return false;
}

void PgnTokenizer::read_digits() {
    auto end = m_at + 1;
    while (end < m_text.size() && is_digit(m_text[end])) ++end;
    emit(TokenKind::integer, end - m_at);
}

void PgnTokenizer::read_tag() {
    const auto open = m_at;
    emit(TokenKind::tag_open, 1);
    while (m_at < m_text.size() && m_text[m_at] == ' ') ++m_at;
    const auto name_end = std::min(m_text.find_first_of(" \"", m_at), m_text.size());
    const auto name = m_text.substr(m_at, name_end - m_at);
    emit_text(TokenKind::tag_name, name);

    // The place counts from the bracket and leaves out blanks ahead of the name: "[ White "x"]" has the value
    // "e ". Games with such tags read as they always did.
    m_at = std::min(open + 1 + name.size(), m_text.size());
    // One quote at most: of an empty value, the second one is its end.
    bool quoted = false;
    for (; m_at < m_text.size(); ++m_at) {
        if (m_text[m_at] == '"' && !quoted) {
            quoted = true;
        } else if (m_text[m_at] != ' ') {
            break;
        }
    }
    auto end = std::min(m_text.find('"', m_at), m_text.size());
    while (end < m_text.size() && m_text[end - 1] == '\\')
        end = std::min(m_text.find('"', end + 1), m_text.size());
    emit_text(TokenKind::tag_value, cleaned(m_text.substr(m_at, end - m_at), tag_value_limit));
    m_at = std::min(end + 1, m_text.size());
}

void PgnTokenizer::read_comment(bool opened_by_angle) {
    emit_text(TokenKind::comment_open, "{");
    ++m_at;
    const auto end =
        std::min(opened_by_angle ? m_text.find_first_of("}>", m_at) : m_text.find('}', m_at), m_text.size());
    emit_text(TokenKind::comment, cleaned(m_text.substr(m_at, end - m_at), comment_limit));
    m_at = end;
}

std::string_view PgnTokenizer::cleaned(std::string_view raw, std::size_t limit) {
    raw = raw.substr(0, limit);
    const auto begin = m_cleaned.size();
    if (is_ascii(raw)) {
        m_cleaned += raw;
    } else {
        m_cleaned += text::valid_utf8(raw);
    }
    if (m_cleaned.find('\r', begin) != std::string::npos) {
        m_cleaned.erase(
            std::remove(m_cleaned.begin() + static_cast<std::ptrdiff_t>(begin), m_cleaned.end(), '\r'),
            m_cleaned.end());
    }
    for (auto i = begin; i < m_cleaned.size(); ++i) {
        if (m_cleaned[i] == '\n' || m_cleaned[i] == '\t') m_cleaned[i] = ' ';
    }
    return std::string_view(m_cleaned).substr(begin);
}

}  // namespace velmora
