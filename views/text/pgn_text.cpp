#include "views/text/pgn_text.h"

#include <algorithm>

namespace velmora {

namespace {

bool is_continuation(char byte) { return (byte & 0xC0) == 0x80; }

std::size_t characters(std::string_view text) {
    return text.size() - std::size_t(std::count_if(text.begin(), text.end(), is_continuation));
}

/// The index of the byte where a character begins; the size beyond the end.
std::size_t byte_of(std::string_view text, std::size_t character) {
    std::size_t byte = 0;
    while (byte < text.size()) {
        if (!is_continuation(text[byte]) && character-- == 0) break;
        ++byte;
    }
    return byte;
}

bool begins_character(std::string_view text, std::size_t byte) {
    return byte >= text.size() || !is_continuation(text[byte]);
}

}  // namespace

std::int64_t clicked_offset(std::string_view text, std::size_t at) {
    const auto separates = [](char c) { return c == ' ' || c == '\n'; };
    std::size_t begin = byte_of(text, at);
    while (begin > 0 && !(begin < text.size() && separates(text[begin]))) --begin;
    if (begin < text.size() && separates(text[begin])) ++begin;
    const std::size_t end = std::min(text.find_first_of(" \n(){", begin), text.size());
    return std::int64_t(end) - 1;
}

TextChange change_between(std::string_view before, std::string_view after) {
    const std::size_t shorter = std::min(before.size(), after.size());
    auto front = std::size_t(
        std::mismatch(before.begin(), before.begin() + std::ptrdiff_t(shorter), after.begin()).first -
        before.begin());
    while (!begins_character(before, front) || !begins_character(after, front)) --front;
    std::size_t back = 0;
    while (back < shorter - front && before[before.size() - 1 - back] == after[after.size() - 1 - back])
        ++back;
    while (is_continuation(back > 0 ? after[after.size() - back] : 'a')) --back;
    return {characters(before.substr(0, front)), characters(before.substr(before.size() - back)),
            after.substr(front, after.size() - front - back)};
}

}  // namespace velmora
