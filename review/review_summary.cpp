#include "review/review_summary.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "game/annotations.h"
#include "review/review_note.h"

namespace velmora {

namespace {

/// Line ends of a file's columns are blanks.
std::string joined_lines(std::string_view comment) {
    std::string text(comment);
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

std::string counted(std::int32_t count, const char* one, const char* more) {
    return std::to_string(count) + ' ' + (count == 1 ? one : more);
}

/// Begin and end of a summary with its note; nothing where there is none.
std::optional<std::pair<std::size_t, std::size_t>> find_summary(std::string_view comment) {
    const auto note = comment.rfind(review_note_beginning);
    if (note == std::string_view::npos) return std::nullopt;
    const auto words = comment.substr(0, note).rfind(summary_beginning);
    return std::pair(words == std::string_view::npos ? note : words, end_of_annotation(comment, note));
}

/// How a side's part begins.
std::string_view head_of(Side side) { return side == Side::white ? " White: " : " Black: "; }

/// The number that a part of the text begins with, ahead of one of two words.
std::optional<std::int32_t> read_counted(std::string_view part, std::string_view one, std::string_view more) {
    const auto blank = part.find(' ');
    if (blank == std::string_view::npos) return std::nullopt;
    const auto word = part.substr(blank + 1);
    if (word != one && word != more) return std::nullopt;
    return text::strict_integer<std::int32_t>(part.substr(0, blank));
}

std::optional<Accuracy> read_accuracy(std::string_view loss, std::string_view percent) {
    constexpr std::string_view loss_head = "average loss ", percent_head = "accuracy ";
    if (!loss.starts_with(loss_head) || !percent.starts_with(percent_head) || !percent.ends_with('%')) {
        return std::nullopt;
    }
    percent.remove_prefix(percent_head.size());
    percent.remove_suffix(1);
    const auto average = read_counted(loss.substr(loss_head.size()), "centipawn", "centipawns");
    const auto whole = text::strict_integer<std::int32_t>(percent);
    if (!average || !whole) return std::nullopt;
    return Accuracy{*average, static_cast<double>(*whole)};
}

std::optional<SideSummary> read_side(std::string_view text) {
    std::array<std::string_view, 5> parts{};
    std::size_t count = 0;
    for (; count < parts.size() && !text.empty(); ++count) {
        const auto end = std::min(text.find(", "), text.size());
        parts[count] = text.substr(0, end);
        text.remove_prefix(std::min(end + 2, text.size()));
    }
    if (!text.empty() || (count != 3 && count != parts.size())) return std::nullopt;
    const auto inaccuracies = read_counted(parts[0], "inaccuracy", "inaccuracies");
    const auto mistakes = read_counted(parts[1], "mistake", "mistakes");
    const auto blunders = read_counted(parts[2], "blunder", "blunders");
    if (!inaccuracies || !mistakes || !blunders) return std::nullopt;
    SideSummary summary{*inaccuracies, *mistakes, *blunders, {}};
    if (count == 3) return summary;
    summary.accuracy = read_accuracy(parts[3], parts[4]);
    if (!summary.accuracy) return std::nullopt;
    return summary;
}

}  // namespace

std::string SideSummary::text() const {
    std::string text = counted(inaccuracies, "inaccuracy", "inaccuracies") + ", " +
                       counted(mistakes, "mistake", "mistakes") + ", " +
                       counted(blunders, "blunder", "blunders");
    if (!accuracy) return text;
    return text + ", average loss " + counted(accuracy->average_loss, "centipawn", "centipawns") +
           ", accuracy " + std::to_string(std::lround(accuracy->percent)) + "%";
}

std::string ReviewSummary::text() const {
    std::string text(summary_beginning);
    text += by + '.';
    for (const Side side : {Side::white, Side::black}) {
        if (!of[side]) continue;
        text += head_of(side);
        text += of[side]->text() + '.';
    }
    return text;
}

/// From its end to its beginning: the name of an engine may hold anything.
std::optional<ReviewSummary> find_review_summary(std::string_view comment) {
    const std::string line = joined_lines(comment);
    const auto place = find_summary(line);
    if (!place) return std::nullopt;
    std::string_view rest(line);
    rest = rest.substr(place->first, rest.rfind(review_note_beginning) - place->first);
    if (!rest.starts_with(summary_beginning)) return std::nullopt;
    rest = text::trim_blanks(rest.substr(summary_beginning.size()));
    ReviewSummary summary;
    for (const Side side : {Side::black, Side::white}) {
        const auto head = rest.rfind(head_of(side));
        if (head == std::string_view::npos || !rest.ends_with('.')) continue;
        const auto from = head + head_of(side).size();
        summary.of[side] = read_side(rest.substr(from, rest.size() - from - 1));
        if (summary.of[side]) rest = rest.substr(0, head);
    }
    if (rest.ends_with('.')) rest.remove_suffix(1);
    summary.by = rest;
    return summary;
}

std::string with_review_summary(std::string_view comment, std::string_view summary) {
    std::string text = joined_lines(comment);
    if (const auto old = find_summary(text)) {
        return text.replace(old->first, old->second - old->first, summary);
    }
    if (!text.empty() && !text.ends_with(' ')) text += ' ';
    return text.append(summary);
}

}  // namespace velmora
