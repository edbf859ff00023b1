#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "chess/board/side.h"
#include "review/accuracy.h"

namespace velmora {

/// One side's part of the verdict on a game.
struct SideSummary {
    std::int32_t inaccuracies = 0;
    std::int32_t mistakes = 0;
    std::int32_t blunders = 0;
    std::optional<Accuracy> accuracy;  ///< nothing where no move could be judged

    /// "2 inaccuracies, 1 mistake, 0 blunders, average loss 34 centipawns, accuracy 91%".
    std::string text() const;

    bool operator==(const SideSummary&) const = default;
};

/// The summary of a review as it stands in the comment ahead of the first move.
struct ReviewSummary {
    std::string by;                         ///< the engine and what it was given: "Fruit 2.1, depth 12"
    BySide<std::optional<SideSummary>> of;  ///< nothing for a side that wasn't judged

    /// The sentences, from "Review by" to the last full stop.
    std::string text() const;

    bool operator==(const ReviewSummary&) const = default;
};

/// How a summary begins.
inline constexpr std::string_view summary_beginning = "Review by ";

/// Reads the summary of a comment, which ends with a ReviewNote; nothing where there is none. The accuracy
/// comes back in whole per cent, as it is written.
std::optional<ReviewSummary> find_review_summary(std::string_view comment);

/// The comment with `summary`, which ends with a note, in place of the one before, or behind all else.
std::string with_review_summary(std::string_view comment, std::string_view summary);

}  // namespace velmora
