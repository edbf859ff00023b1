#include "collection/main_line.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace velmora {

namespace {

enum class Begins : std::uint8_t {
    nothing,
    word,
    digits,
    zero_or_one,
    star,
    comment,
    angle,
    line_comment,
    percent,
    glyph,
    open,
    close,
    bracket
};

constexpr auto beginnings = [] {
    std::array<Begins, 256> table{};
    const auto set = [&table](std::string_view characters, Begins what) {
        for (const char c : characters) table[static_cast<unsigned char>(c)] = what;
    };
    for (unsigned char c = 'a'; c <= 'z'; ++c) table[c] = Begins::word;
    for (unsigned char c = 'A'; c <= 'Z'; ++c) table[c] = Begins::word;
    for (std::size_t c = 0x80; c < table.size(); ++c) table[c] = Begins::word;
    set("#+-:=_", Begins::word);
    set("23456789", Begins::digits);
    set("01", Begins::zero_or_one);
    set("*", Begins::star);
    set("{", Begins::comment);
    set("<", Begins::angle);
    set(";", Begins::line_comment);
    set("%", Begins::percent);
    set("$", Begins::glyph);
    set("(", Begins::open);
    set(")", Begins::close);
    set("[", Begins::bracket);
    return table;
}();

Begins beginning(char c) { return beginnings[static_cast<unsigned char>(c)]; }

constexpr auto in_word = [] {
    std::array<bool, 256> table{};
    for (std::size_t c = 0; c < table.size(); ++c) table[c] = beginnings[c] == Begins::word;
    for (unsigned char c = '0'; c <= '9'; ++c) table[c] = true;
    return table;
}();

bool is_digit(char c) { return c >= '0' && c <= '9'; }

/// "+-", "=", "+/=" and their like judge a position.
bool is_judgement(std::string_view word) {
    return word != "--" && word.find_first_not_of("#+-:=_") == std::string_view::npos;
}

}  // namespace

std::string_view MainLine::next() {
    while (m_at < m_text.size() && m_result.empty()) {
        switch (beginning(m_text[m_at])) {
            case Begins::nothing:
                ++m_at;
                break;
            case Begins::word: {
                const auto word = take_word();
                if (m_depth == 0 && !word.empty()) return word;
                break;
            }
            case Begins::zero_or_one:
                if (take_result()) return {};
                if (m_text.substr(m_at, 3) == "0-0") {
                    const auto word = take_word();
                    if (m_depth == 0) return word;
                    break;
                }
                [[fallthrough]];
            case Begins::digits:
                while (m_at < m_text.size() && is_digit(m_text[m_at])) ++m_at;
                break;
            case Begins::star:
                m_result = m_text.substr(m_at++, 1);
                return {};
            case Begins::comment:
                skip_behind("}");
                break;
            case Begins::angle:
                skip_behind(">}");
                break;
            case Begins::bracket:
                skip_behind("]");
                break;
            case Begins::line_comment:
                skip_line();
                break;
            case Begins::percent:
                if (m_at == 0 || m_text[m_at - 1] == '\n') {
                    skip_line();
                } else {
                    ++m_at;
                }
                break;
            case Begins::glyph:
                ++m_at;
                while (m_at < m_text.size() && is_digit(m_text[m_at])) ++m_at;
                break;
            case Begins::open:
                ++m_depth;
                ++m_at;
                break;
            case Begins::close:
                if (m_depth > 0) --m_depth;
                ++m_at;
                break;
        }
    }
    return {};
}

/// Within a variation, too, as for the cutter of games: "1-0" stands nowhere else in movetext.
bool MainLine::take_result() {
    const auto rest = m_text.substr(m_at, 7);
    for (const std::string_view result : {"1-0", "0-1", "1/2-1/2"}) {
        if (!rest.starts_with(result)) continue;
        m_result = m_text.substr(m_at, result.size());
        m_at += result.size();
        return true;
    }
    return false;
}

std::string_view MainLine::take_word() {
    const auto begin = m_at;
    while (m_at < m_text.size() && in_word[static_cast<unsigned char>(m_text[m_at])]) ++m_at;
    const auto word = m_text.substr(begin, m_at - begin);
    if (is_judgement(word)) return {};
    // The sign of taking en passant, which some programs write behind the move.
    if (m_text.substr(begin, 4) == "e.p.") {
        m_at = begin + 4;
        return {};
    }
    return word;
}

void MainLine::skip_line() {
    const auto end = m_text.find('\n', m_at);
    m_at = end == std::string_view::npos ? m_text.size() : end + 1;
}

void MainLine::skip_behind(std::string_view closing) {
    const auto end = m_text.find_first_of(closing, m_at + 1);
    m_at = end == std::string_view::npos ? m_text.size() : end + 1;
}

}  // namespace velmora
