#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/evaluation.h"
#include "chess/board/side.h"

namespace velmora {

/// One line of what an engine says of its search. What it hasn't said is absent.
struct SearchInfo {
    std::optional<std::int32_t> depth;            ///< plies
    std::optional<std::int32_t> selective_depth;  ///< plies
    std::int32_t line = 1;                        ///< which of the lines asked for, 1 is the best
    std::optional<Evaluation> score;
    std::optional<std::int64_t> nodes;
    std::optional<std::int64_t> nodes_per_second;
    std::optional<std::int64_t> time;  ///< ms
    std::optional<std::int32_t> hash;  ///< permille of the table in use
    std::optional<std::int64_t> tablebase_hits;
    std::vector<std::string> moves;  ///< as the engine writes them, in coordinates or algebraic
};

/// The lines of a search that can be told apart and shown; the bound of the UCI option is 500.
constexpr std::int32_t most_search_lines = 500;

/// Reads what stands behind the word "info", as the referee passes it on, of the engine that plays `side`.
///
/// There are two forms. One is that of UCI (the protocol's description, "info"): words with their values in
/// any order, and the moves behind "pv". The other is what the driver makes of the thinking output of an
/// xboard engine: "depth score time nodes nps" in this order and the rest of the engine's line behind it,
/// without "pv"; there the time is in hundredths of a second, a score of 100000 + n is a mate in n, and the
/// moves may have numbers, marks and remarks about them. A value that can't be read counts as not said; what
/// stands behind "string" is text for people.
SearchInfo read_search_info(std::string_view text, Side side);

}  // namespace velmora
