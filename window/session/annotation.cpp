#include "window/session/annotation.h"

#include <cmath>
#include <cstdint>

#include "base/text.h"
#include "game/annotations.h"

namespace velmora {

namespace {

using text::WordReader;

/// What one line of search output says, as far as it goes into a comment.
struct SearchLine {
    std::string eval;  // the evaluation's annotation, empty without one
    std::string mate;
    std::string time;
    std::int64_t nodes = 0;
    std::int64_t nodes_per_second = 0;
    std::string depth;
};

std::string time_annotation(double milliseconds) {
    if (!(milliseconds > 1000)) return {};
    const double hours = std::trunc(milliseconds / 3600000);
    const double minutes = std::trunc(milliseconds / 60000) - hours * 60;
    const double seconds = std::round(milliseconds / 1000 - hours * 3600 - minutes * 60);
    const auto whole = [](double number) { return std::to_string(static_cast<std::int64_t>(number)); };
    return "[%emt " + whole(hours) + ":" + whole(minutes) + ":" + whole(seconds) + "]";
}

/// Reads what follows the word "score"; an unknown kind of score clears the annotation on the spot.
void read_score(WordReader& reader, Side side, SearchLine& result, std::string& annotation) {
    const auto kind = reader.word();
    const auto from_white = [side](std::int64_t value) { return side == Side::white ? value : -value; };
    if (kind == "cp") {
        const auto centipawns = from_white(reader.integer<std::int32_t>().value_or(0));
        result.eval = "[%eval " + text::default_form(static_cast<double>(centipawns) / 100) + "]";
    } else if (kind == "mate") {
        result.mate =
            "[%eval mate " + std::to_string(from_white(reader.integer<std::int32_t>().value_or(0))) + "]";
    } else {
        annotation.clear();
    }
}

}  // namespace

/// A line without a score appends, since engines that split their output say depth and nodes apart.
void annotate(std::string& annotation, std::string_view line, Side side) {
    SearchLine found;
    WordReader reader(line);
    for (auto word = reader.word(); !word.empty(); word = reader.word()) {
        if (word == "score") {
            read_score(reader, side, found, annotation);
        } else if (word == "time") {
            // Times beyond a year are no times; this also keeps the conversion to whole numbers in range.
            const double time = reader.real().value_or(0);
            found.time = time < 3.2e10 ? time_annotation(time) : std::string();
        } else if (word == "nodes") {
            found.nodes = reader.integer<std::int64_t>().value_or(0);
        } else if (word == "nps") {
            found.nodes_per_second = reader.integer<std::int64_t>().value_or(0);
        } else if (word == "depth") {
            found.depth = annotation_value(reader.word());
        } else if (word == "hashfull") {
            reader.word();
        }
    }

    if (!found.eval.empty()) annotation = found.eval;
    if (!found.mate.empty()) annotation = found.mate;
    annotation += found.time;
    if (found.nodes > 0) annotation += "[%acn " + std::to_string(found.nodes) + "]";
    if (found.nodes_per_second > 0) annotation += "[%nps " + std::to_string(found.nodes_per_second) + "]";
    if (!found.depth.empty()) annotation += "[%depth " + found.depth + "]";
    // An engine may go on for long without telling a score.
    if (annotation.size() > pgn_limits::own_comment) {
        annotation = readable_comment(annotation, pgn_limits::own_comment);
    }
}

}  // namespace velmora
