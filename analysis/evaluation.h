#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "chess/board/side.h"

namespace velmora {

/// How an engine means a score: as the value, or as the least or the most that it can be.
enum class Bound { exact, lower, upper };

/// What a position is worth, from White's point of view whoever is to move.
///
/// One view for all that is shown, stored and drawn: engines speak from the view of the side to move, and a
/// number that changes its sign at every move can't be followed. The winner of a mate is part of the kind
/// and not a sign, since a mate in 0 has none.
struct Evaluation {
    enum class Kind { centipawns, white_mates, black_mates };

    Kind kind = Kind::centipawns;
    std::int32_t value = 0;  ///< centipawns, or the moves to the mate, 0 or more
    Bound bound = Bound::exact;

    /// What an engine playing `side` says of itself: centipawns, or the moves in which it mates, negative or
    /// 0 when it is mated. A bound turns round with the view.
    static Evaluation of_centipawns(std::int32_t centipawns, Side side, Bound bound = Bound::exact);
    static Evaluation of_mate(std::int32_t moves, Side side, Bound bound = Bound::exact);

    bool is_mate() const { return kind != Kind::centipawns; }

    /// "+0.35", "0.00", "-12.30", "#5", "-#3"; ahead of a bound stands "≥" or "≤".
    std::string text() const;

    /// White's expected score, 0 to 1: 1 / (1 + exp(-0.00368208 cp)), which is the published fit of lichess
    /// (lichess.org/page/accuracy) of results to evaluations; a mate is certain.
    double expected_score() const;

    bool operator==(const Evaluation&) const = default;
};

/// The value of an annotation "[%eval ...]" as lichess writes it: "0.35", "-12.3", "#5", "#-3". A bound isn't
/// told.
std::string annotation_of(const Evaluation& evaluation);

/// Reads the value of an annotation "[%eval ...]": pawns ("0.35", "+1", "-12.5"), a mate as lichess writes it
/// ("#5", "#-3"), as it is shown here ("-#3") or as the program annotates it ("mate -3"); a comma and a depth
/// may follow. Nothing for any other text.
std::optional<Evaluation> parse_evaluation(std::string_view text);

/// The evaluation in a comment's last "[%eval ...]"; nothing without one that can be read.
std::optional<Evaluation> evaluation_of_comment(std::string_view comment);

}  // namespace velmora
