#include "review/review_note.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "base/text.h"
#include "game/annotations.h"
#include "game/comment_parts.h"

namespace velmora {

namespace {

std::int32_t amount(const Level& level) {
    switch (level.level_t()) {
        case LevelType::fixed_depth:
            return level.depth();
        case LevelType::fixed_nodes:
            return level.nodes();
        case LevelType::fixed_movetime:
            return level.movetime();
        case LevelType::sudden_death:
        case LevelType::sessions:
            break;
    }
    return 0;
}

/// Line ends of a file's columns are blanks.
std::string on_one_line(std::string_view comment) {
    std::string text(comment);
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

std::optional<Level> read_level(std::string_view mode, std::string_view number) {
    try {
        return Level(std::string(mode) + ' ' + std::string(number));
    } catch (const std::logic_error&) {
        return std::nullopt;
    }
}

}  // namespace

std::string ReviewNote::text() const {
    std::string text(review_note_beginning);
    text += std::to_string(first_ply) + '-' + std::to_string(last_ply) + ' ' + level.text() + ' ' + engine;
    return text + ']';
}

bool ReviewNote::serves(const std::string& engine_name, const Level& effort) const {
    return engine == engine_name && level.level_t() == effort.level_t() && amount(level) >= amount(effort);
}

std::string review_name(std::string_view engine) {
    std::string name = text::record_text(engine, 60);
    std::erase_if(name,
                  [](char c) { return std::string_view("[]{}\"\n").find(c) != std::string_view::npos; });
    return name.empty() ? "engine" : name;
}

std::optional<ReviewNote> find_review_note(std::string_view comment) {
    const std::string line = on_one_line(comment);
    const auto begin = line.rfind(review_note_beginning);
    if (begin == std::string::npos) return std::nullopt;
    text::WordReader reader(std::string_view(line).substr(begin + review_note_beginning.size()));
    const auto range = reader.word();
    const auto dash = range.find('-');
    if (dash == std::string_view::npos) return std::nullopt;
    const auto first = text::strict_integer<std::size_t>(range.substr(0, dash));
    const auto last = text::strict_integer<std::size_t>(range.substr(dash + 1));
    const auto mode = reader.word();
    const auto level = read_level(mode, reader.word());
    const auto rest = reader.rest();
    const auto end = rest.find(']');
    if (!first || !last || !level || end == std::string_view::npos) return std::nullopt;
    return ReviewNote{*first, *last, *level, std::string(text::trim_blanks(rest.substr(0, end)))};
}

std::string with_evaluation(std::string_view comment, std::string_view evaluation, std::int32_t depth) {
    std::string rest;
    std::size_t at = 0;
    while (at < comment.size()) {
        const bool replaced =
            comment.substr(at).starts_with("[%eval ") || comment.substr(at).starts_with("[%depth ");
        if (!replaced) {
            rest += comment[at++];
            continue;
        }
        at = end_of_annotation(comment, at);
        // What held two annotations apart would stand at the beginning.
        if (rest.empty() && at < comment.size() && (comment[at] == ' ' || comment[at] == '\n')) ++at;
    }
    const std::string value = "[%eval " + std::string(evaluation) + "]";
    const std::string whole = value + "[%depth " + std::to_string(depth) + "]" + rest;
    for (const std::string& candidate : {whole, value + rest}) {
        if (is_readable_comment(candidate)) return candidate;
    }
    return std::string(comment);
}

std::string effort_text(const Level& level) {
    switch (level.level_t()) {
        case LevelType::fixed_depth:
            return "depth " + std::to_string(level.depth());
        case LevelType::fixed_nodes:
            return std::to_string(level.nodes()) + " nodes";
        case LevelType::fixed_movetime: {
            char seconds[32];
            std::snprintf(seconds, sizeof seconds, "%g s a move", level.movetime() / 1000.0);
            return seconds;
        }
        case LevelType::sudden_death:
        case LevelType::sessions:
            break;
    }
    return level.text();
}

}  // namespace velmora
