#include "game/annotations.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace velmora {

std::size_t end_of_annotation(std::string_view comment, std::size_t at) {
    bool quoted = false;
    for (; at < comment.size(); ++at) {
        if (comment[at] == '"') quoted = !quoted;
        if (comment[at] == ']' && !quoted) return at + 1;
    }
    return at;
}

namespace {

constexpr std::string_view annotation_begin = "[%";

/// The length of a comment in a file: the wrapper may put a line end ahead of each annotation.
std::size_t size_in_file(std::string_view comment) {
    auto size = comment.size();
    for (auto at = comment.find(annotation_begin); at != std::string_view::npos;
         at = comment.find(annotation_begin, at + 1)) {
        ++size;
    }
    return size;
}

/// Drops annotations from the front, but the evaluation, while the comment is too long.
void drop_oldest_annotations(std::string& comment, std::size_t limit) {
    const auto kept = comment.starts_with("[%eval ") ? end_of_annotation(comment, 0) : 0;
    while (size_in_file(comment) > limit) {
        const auto oldest = comment.find_first_not_of(" \n", kept);
        if (oldest == std::string::npos || comment.compare(oldest, 2, annotation_begin) != 0) return;
        comment.erase(kept, end_of_annotation(comment, oldest) - kept);
    }
}

/// Cuts what is still too long at a character.
void cut_end(std::string& comment, std::size_t limit) {
    const auto size = size_in_file(comment);
    if (size <= limit) return;
    // Line ends beyond the first cut are counted too; so it may be a few bytes shorter than it could be.
    comment.resize(
        text::utf8_prefix(comment, comment.size() - std::min(size - limit, comment.size())).size());
}

/// The bytes for which a comment may have to be changed.
constexpr auto suspects = [] {
    std::array<bool, 256> table{};
    for (std::size_t c = 0; c < 0x80; ++c) table[c] = text::is_control(static_cast<char>(c));
    table['{'] = table['}'] = true;
    return table;
}();

}  // namespace

bool is_readable_comment(std::string_view comment) {
    const auto is_suspect = [](char c) { return suspects[static_cast<unsigned char>(c)]; };
    // Annotations are at least two bytes long, so that shorter ones need no count.
    constexpr auto surely_fits = pgn_limits::comment * 2 / 3;
    return std::none_of(comment.begin(), comment.end(), is_suspect) &&
           (comment.size() <= surely_fits || size_in_file(comment) <= pgn_limits::comment);
}

std::string readable_comment(std::string_view comment, std::size_t limit) {
    std::string result(comment);
    for (std::size_t i = 0; i < result.size(); ++i) {
        char& c = result[i];
        if (c == '{') c = '(';
        if (c == '}') c = ')';
        if (text::is_control(c) && c != '\n' && c != '\t') c = ' ';
        if (c == '\n' && result.substr(i + 1, 1) == "%") c = ' ';
    }
    drop_oldest_annotations(result, limit);
    cut_end(result, limit);
    return result;
}

std::string without_annotations(std::string_view comment) {
    std::string rest;
    for (std::size_t at = 0; at < comment.size();) {
        if (comment.substr(at, 2) == "[%") {
            at = end_of_annotation(comment, at);
        } else {
            if (comment[at] != '\n') rest += comment[at];
            ++at;
        }
    }
    rest.erase(rest.find_last_not_of(" \t\n;") + 1);
    return rest;
}

std::string comment_from_user(std::string_view text) {
    return readable_comment(text::valid_utf8(text::utf8_prefix(text, pgn_limits::own_comment)));
}

std::string annotation_value(std::string_view word) {
    constexpr std::size_t longest = 40;  // of numbers and clock times, generously
    auto value = text::record_text(word, longest);
    for (char& c : value) {
        if (c == '[') c = '(';
        if (c == ']') c = ')';
        if (c == '"') c = '\'';
    }
    return value;
}

std::string ending_text(std::string_view comment, std::string_view result) {
    comment = text::trim_blanks(comment);
    std::string ending;
    if (!comment.empty()) {
        if (comment.starts_with('{')) comment.remove_prefix(1);
        if (comment.ends_with('}')) comment.remove_suffix(1);
        ending = "{" + text::record_text(comment, pgn_limits::own_comment) + "} ";
    }
    return ending.append(result);
}

}  // namespace velmora
