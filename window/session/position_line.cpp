#include "window/session/position_line.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>

#include "base/text.h"
#include "chess/board/placement.h"

namespace velmora {

namespace {

bool is_one_of(char c, std::string_view set) { return set.find(c) != std::string_view::npos; }

bool is_castling_field(std::string_view field) {
    return !field.empty() && field.size() <= 4 && std::all_of(field.begin(), field.end(), [](char c) {
        return is_one_of(c, "-KQkqABCDEFGHabcdefgh");
    });
}

bool is_en_passant_field(std::string_view field) {
    return field == "-" ||
           (field.size() == 2 && is_one_of(field[0], "abcdefgh") && is_one_of(field[1], "12345678"));
}

/// What stands behind the first four fields.
std::string_view behind_position(std::string_view line) {
    text::WordReader reader(line);
    for (int field = 0; field < 4; ++field) reader.word();
    return text::trim_white_space(reader.rest());
}

/// One operation from the front of `rest`: up to a semicolon outside of quotes.
std::string_view next_operation(std::string_view& rest) {
    bool quoted = false;
    std::size_t end = 0;
    for (; end < rest.size() && (quoted || rest[end] != ';'); ++end) {
        if (rest[end] == '"') quoted = !quoted;
    }
    const auto operation = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return text::trim_white_space(operation);
}

std::string lower(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return result;
}

std::optional<std::string> tag_of(std::string_view opcode) {
    static constexpr std::array tags = {"Event", "Site", "Date", "Round", "White", "Black", "Result"};
    if (lower(opcode) == "id") return "Event";
    for (const std::string tag : tags) {
        if (lower(opcode) == lower(tag)) return tag;
    }
    return std::nullopt;
}

}  // namespace

std::vector<std::string_view> first_fields(std::string_view line) {
    auto fields = text::words(line);
    if (fields.size() > 4) fields.resize(4);
    return fields;
}

bool is_position_line(std::string_view line) {
    const auto fields = first_fields(line);
    return fields.size() == 4 && is_whole_placement(fields[0]) && (fields[1] == "w" || fields[1] == "b") &&
           is_castling_field(fields[2]) && is_en_passant_field(fields[3]);
}

std::string_view epd_operations(std::string_view line) {
    const auto rest = behind_position(line);
    const bool counters = !rest.empty() && std::isdigit(static_cast<unsigned char>(rest.front())) != 0;
    return counters ? std::string_view() : rest;
}

std::vector<std::pair<std::string, std::string>> roster_tags(std::string_view line) {
    std::vector<std::pair<std::string, std::string>> tags;
    auto rest = epd_operations(line);
    while (!rest.empty()) {
        text::WordReader operation(next_operation(rest));
        const auto tag = tag_of(operation.word());
        if (!tag) continue;
        std::string value(text::trim_white_space(operation.rest()));
        std::erase(value, '"');
        tags.emplace_back(*tag, value);
    }
    return tags;
}

}  // namespace velmora
