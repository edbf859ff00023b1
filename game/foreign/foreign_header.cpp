#include "game/foreign/foreign_header.h"

#include <algorithm>
#include <optional>

#include "base/text.h"
#include "game/foreign/result_word.h"
#include "game/pgn_limits.h"

namespace velmora {

namespace {

constexpr std::size_t most_tags = 200;

/// A value that goes on in the next line does so on one of the next few.
constexpr int most_value_lines = 4;

bool is_ascii_letter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

/// A quote that isn't escaped.
bool has_bare_quote(std::string_view value) {
    for (auto quote = value.find('"'); quote != std::string_view::npos; quote = value.find('"', quote + 1)) {
        if (quote == 0 || value[quote - 1] != '\\') return true;
    }
    return false;
}

/// The parts of one tag, and where it ends in the text.
struct TagParts {
    std::string_view name;
    std::string_view value;
    std::size_t end = 0;
    bool is_plain = true;  ///< in the strict form
};

class HeaderReader {
public:
    HeaderReader(std::string_view text, RemarkList& remarks) : m_text(text), m_remarks(remarks) {}

    ForeignHeader read() {
        while (read_part()) {
        }
        m_header.has_tags = m_count > 0;
        m_header.moves_begin = m_at;
        return std::move(m_header);
    }

private:
    /// A tag, a comment or an escaped line; false where the moves begin.
    bool read_part() {
        m_at = std::min(m_text.find_first_not_of(text::white_space, m_at), m_text.size());
        if (m_at == m_text.size()) return false;
        switch (m_text[m_at]) {
            case '[':
                if (!begins_with_tag(m_text.substr(m_at, line_end(m_at) - m_at))) return false;
                read_tag();
                return true;
            case '%':
                m_at = line_end(m_at);
                return true;
            case ';':
                m_remarks.add(RemarkKind::semicolon_comment, m_at);
                add_comment(text::trim_white_space(m_text.substr(m_at + 1, line_end(m_at) - m_at - 1)));
                m_at = line_end(m_at);
                return true;
            case '{': {
                const auto end = m_text.find('}', m_at);
                if (end == std::string_view::npos) return false;
                add_comment(m_text.substr(m_at + 1, end - m_at - 1));
                m_at = end + 1;
                return true;
            }
            default:
                return false;
        }
    }

    std::size_t line_end(std::size_t at) const { return std::min(m_text.find('\n', at), m_text.size()); }

    void add_comment(std::string_view comment) {
        if (!m_header.comment.empty() && !comment.empty()) m_header.comment += ' ';
        m_header.comment += comment;
    }

    void read_tag() {
        const auto parts = tag_at(m_at);
        if (!parts.is_plain)
            m_remarks.add(RemarkKind::tag_form, m_at, {}, m_text.substr(m_at, parts.end - m_at));
        if (++m_count > most_tags) {
            m_remarks.add(RemarkKind::tags_dropped, m_at, {}, parts.name);
        } else {
            if (parts.value.size() > pgn_limits::tag_value)
                m_remarks.add(RemarkKind::tag_shortened, m_at, {}, parts.name);
            set(parts);
        }
        m_at = parts.end;
    }

    void set(const TagParts& parts) {
        // As it will be printed, so that a start position is the same now and when it is read back.
        std::string value(text::utf8_prefix(text::trim_white_space(parts.value), pgn_limits::tag_value));
        std::ranges::replace_if(value, text::is_control, ' ');
        for (std::size_t i = 0; i < value.size(); ++i) {
            if (value[i] == '"' && (i == 0 || value[i - 1] != '\\'))
                value[i] = '\'';  // it would end the value
        }
        if (parts.name == "Result") {
            const auto result = result_at(value);
            if (result && result.size == value.size() && value != result.strict) {
                m_remarks.add(RemarkKind::result_form, m_at, {}, value);
                value = result.strict;
            }
        }
        // What a reader skips at the front of a value may not stand there.
        value.erase(0, value.find_first_not_of(" \""));
        m_header.tags.set(parts.name, value);
    }

    TagParts tag_at(std::size_t begin) const {
        TagParts parts;
        const auto name_begin = m_text.find_first_not_of(' ', begin + 1);
        const auto name_end = std::min(m_text.find_first_of(" \t\"]\n", name_begin), m_text.size());
        parts.name = m_text.substr(name_begin, name_end - name_begin);
        const auto value_begin = std::min(m_text.find_first_not_of(" \t", name_end), m_text.size());
        const bool is_quoted = value_begin < m_text.size() && m_text[value_begin] == '"';
        const auto closing = is_quoted ? closing_quote(value_begin + 1) : std::nullopt;
        if (closing) {
            parts.value = m_text.substr(value_begin + 1, *closing - value_begin - 1);
            parts.end = m_text.find(']', *closing) + 1;
            parts.is_plain = !has_bare_quote(parts.value) &&
                             parts.value.find('\n') == std::string_view::npos && !holds_moves(parts.value);
            return parts;
        }
        // What isn't closed ends with its line.
        parts.is_plain = false;
        parts.end = line_end(value_begin);
        auto value = m_text.substr(value_begin, parts.end - value_begin);
        if (const auto bracket = value.find(']'); !is_quoted && bracket != std::string_view::npos) {
            value = value.substr(0, bracket);
            parts.end = value_begin + bracket + 1;
        }
        while (!value.empty() && std::string_view("\"] \t\r").find(value.back()) != std::string_view::npos)
            value.remove_suffix(1);
        if (is_quoted && !value.empty()) value.remove_prefix(1);
        parts.value = value;
        return parts;
    }

    /// The quote that ends a value: with a bracket behind it, and behind that the line's end or a tag; else
    /// the first one with a bracket.
    std::optional<std::size_t> closing_quote(std::size_t begin) const {
        std::optional<std::size_t> first;
        std::size_t end = begin;
        for (int lines = 0; lines < most_value_lines; ++lines) {
            const auto this_end = line_end(end);
            for (auto quote = m_text.find('"', end); quote < this_end; quote = m_text.find('"', quote + 1)) {
                const auto bracket = m_text.find_first_not_of(" \t", quote + 1);
                if (bracket >= this_end || m_text[bracket] != ']') continue;
                if (!first) first = quote;
                if (ends_tag(bracket + 1, this_end)) return quote;
            }
            if (first || this_end == m_text.size()) break;
            end = this_end + 1;
            if (begins_with_tag(m_text.substr(end, line_end(end) - end))) break;
        }
        return first;
    }

    bool ends_tag(std::size_t at, std::size_t line) const {
        const auto behind = text::trim_white_space(m_text.substr(at, line - at));
        return behind.empty() || begins_with_tag(behind);
    }

    std::string_view m_text;
    RemarkList& m_remarks;
    std::size_t m_at = 0;
    std::size_t m_count = 0;
    ForeignHeader m_header{};
};

}  // namespace

bool begins_with_tag(std::string_view line) {
    line = text::trim_white_space(line);
    if (!line.starts_with('[')) return false;
    const auto name = text::trim_leading_blanks(line.substr(1));
    if (name.empty() || !is_ascii_letter(name.front())) return false;
    const auto is_of_name = [](char c) { return is_ascii_letter(c) || (c >= '0' && c <= '9') || c == '_'; };
    const auto name_end = std::ranges::find_if_not(name, is_of_name) - name.begin();
    const auto rest = name.substr(static_cast<std::size_t>(name_end));
    return !rest.empty() && std::string_view(" \t\"").find(rest.front()) != std::string_view::npos;
}

bool holds_moves(std::string_view value) {
    const auto behind = value.substr(std::min(value.find(']'), value.size()));
    return std::ranges::any_of(behind, [](char c) {
        return static_cast<unsigned char>(c) >= 0x80 ||
               std::string_view("0123456789*{[").find(c) != std::string_view::npos;
    });
}

ForeignHeader read_foreign_header(std::string_view text, RemarkList& remarks) {
    return HeaderReader(text, remarks).read();
}

}  // namespace velmora
