#include "game/tag_line.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/text.h"

namespace velmora {

namespace {

constexpr std::array<std::string_view, 7> roster{"Event", "Site",  "Date",  "Round",
                                                 "White", "Black", "Result"};

bool is_in_roster(std::string_view name) {
    return std::find(roster.begin(), roster.end(), name) != roster.end();
}

/// Cautious on purpose: what isn't surely plain takes the slow way, which decides.
bool is_plain(std::string_view name) {
    return !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
        return c >= 'A' && c <= 'z' && c != '[' && c != ']' && c != '\\';
    });
}

/// The line without brackets and quotes.
std::string bare_line(std::string_view line) {
    std::string bare(line);
    std::erase_if(bare, [](char c) { return c == '[' || c == ']'; });
    for (auto at = bare.find("\\\""); at != std::string::npos; at = bare.find("\\\"", at)) {
        bare.replace(at, 2, "'");
    }
    std::erase(bare, '"');
    return bare;
}

/// The value of `"value"]`, nothing when the rest of a line has another form.
std::optional<std::string_view> plain_value(std::string_view rest) {
    constexpr std::string_view tail = "\"]";
    if (rest.size() <= tail.size() || rest.front() != '"' || !rest.ends_with(tail)) return std::nullopt;
    const auto value = rest.substr(1, rest.size() - 1 - tail.size());
    for (const char c : {'"', '[', ']'}) {
        if (value.find(c) != std::string_view::npos) return std::nullopt;
    }
    return value.ends_with('\\') ? std::nullopt : std::optional(value);
}

}  // namespace

void add_roster_tag(std::string_view line, TagPairs& tags) {
    // Nearly all lines have the form [Name "value"] and need no copy.
    const auto name_end = line.find(' ');
    if (name_end != std::string_view::npos && line.front() == '[') {
        const auto plain_name = line.substr(1, name_end - 1);
        const auto value = plain_value(line.substr(name_end + 1));
        if (value && is_plain(plain_name)) {
            if (is_in_roster(plain_name)) tags.emplace_back(plain_name, text::trim_blanks(*value));
            return;
        }
    }
    const auto bare = bare_line(line);
    const auto words = text::trim_blanks(bare);
    const auto name = words.substr(0, words.find(' '));
    if (is_in_roster(name)) tags.emplace_back(name, text::trim_blanks(words.substr(name.size())));
}

}  // namespace velmora
