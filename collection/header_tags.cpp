#include "collection/header_tags.h"

#include <algorithm>

#include "base/text.h"

namespace velmora {

namespace {

/// In the order of Tag.
constexpr std::array<std::string_view, tag_count> names{
    "Event",    "Site",     "Date", "Round",   "White",     "Black", "Result",
    "WhiteElo", "BlackElo", "ECO",  "Opening", "Variation", "FEN",   "Variant"};

/// The PGN standard (section 7) has 255 characters; more isn't shown, whatever a file holds.
constexpr std::size_t longest_value = 255;
constexpr std::size_t longest_name = 255;

bool is_name(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

std::size_t blanks(std::string_view text) { return std::min(text.find_first_not_of(" \t"), text.size()); }

/// A line with its end, or the whole rest.
std::size_t line_length(std::string_view text) {
    const auto end = text.find('\n');
    return end == std::string_view::npos ? text.size() : end + 1;
}

std::string from_latin1(std::string_view text) {
    std::string utf8;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            utf8 += c;
        } else {
            utf8 += static_cast<char>(0xC0 | byte >> 6);
            utf8 += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return utf8;
}

}  // namespace

bool begins_tag(std::string_view text) {
    if (text.empty() || text.front() != '[') return false;
    text.remove_prefix(1);
    text.remove_prefix(blanks(text));
    std::size_t length = 0;
    while (length < text.size() && length < longest_name && is_name(text[length])) ++length;
    text.remove_prefix(length);
    text.remove_prefix(blanks(text));
    return length > 0 && text.starts_with('"');
}

std::size_t HeaderTags::read(std::string_view text) {
    m_values.fill({});
    std::size_t at = 0;
    while (at < text.size()) {
        const auto rest = text.substr(at);
        const char c = rest.front();
        if (begins_tag(rest)) {
            at += read_tag(rest);
        } else if (c == '%' || c == ';') {
            at += line_length(rest);
        } else if (c == '{' && rest.find('}') != std::string_view::npos) {
            // A comment belongs to the header when another tag follows.
            const auto end = rest.find('}') + 1;
            const auto behind = rest.find_first_not_of(" \t\r\n", end);
            if (behind == std::string_view::npos || !begins_tag(rest.substr(behind))) return at;
            at += behind;
        } else if (static_cast<unsigned char>(c) <= ' ') {
            ++at;
        } else {
            break;
        }
    }
    return at;
}

/// REQUIRES: begins_tag(text). Returns the length of the tag.
std::size_t HeaderTags::read_tag(std::string_view text) {
    const auto name_begin = 1 + blanks(text.substr(1));
    const auto quote = text.find('"', name_begin);
    const auto name = text::trim_white_space(text.substr(name_begin, quote - name_begin));
    // A nickname that is quoted twice has its end where quote and bracket come together.
    auto end = quote + 1;
    while (end < text.size() && text[end] != '\n') {
        if (text[end] == '"' && text[end - 1] != '\\') {
            const auto behind = end + 1 + blanks(text.substr(end + 1));
            if (behind >= text.size() || text[behind] == ']' || text[behind] == '\r' || text[behind] == '\n')
                break;
        }
        ++end;
    }
    const auto value = text.substr(quote + 1, end - quote - 1);
    const auto found = std::find(names.begin(), names.end(), name);
    if (found != names.end()) {
        auto& kept = m_values[static_cast<std::size_t>(found - names.begin())];
        if (kept.data() == nullptr) kept = value;
    }
    const auto bracket = text.find_first_of("]\n", end);
    return bracket == std::string_view::npos ? text.size() : bracket + 1;
}

std::string shown_value(std::string_view value) {
    value = text::trim_white_space(value);
    const bool plain = value.size() <= longest_value && std::none_of(value.begin(), value.end(), [](char c) {
                           return static_cast<unsigned char>(c) >= 0x80 || c == '\\' || text::is_control(c);
                       });
    if (plain) return std::string(value);
    std::string shown;
    for (std::size_t at = 0; at < std::min(value.size(), longest_value); ++at) {
        if (value[at] == '\\' && at + 1 < value.size() && (value[at + 1] == '"' || value[at + 1] == '\\'))
            ++at;
        shown += text::is_control(value[at]) ? ' ' : value[at];
    }
    // Cut first, or a cut character would make the whole text Latin-1.
    if (value.size() > longest_value) shown = text::utf8_prefix(shown, shown.size() - 1);
    const bool is_utf8 = text::valid_utf8(shown) == shown;
    shown = is_utf8 ? shown : from_latin1(shown);
    return std::string(text::trim_blanks(text::utf8_prefix(shown, longest_value)));
}

}  // namespace velmora
