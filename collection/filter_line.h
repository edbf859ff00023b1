#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "collection/game_columns.h"

namespace velmora {

/// One condition of a filter.
struct FilterTerm {
    enum class Kind {
        word,  ///< `text` stands in the name of a player, the event, the site or the opening
        white,
        black,
        event,
        site,
        opening,
        round,  ///< the texts' kinds: `text` stands in that one
        elo,    ///< of both players; unknown ones fit nothing
        year,
        eco,    ///< as eco_number()
        moves,  ///< full moves; the numbers' kinds: from `low` to `high`, both included
        result,
    };
    Kind kind = Kind::word;
    std::string text;  ///< folded
    std::uint32_t low = 0;
    std::uint32_t high = 0;
    GameResult result = GameResult::unknown;

    friend bool operator==(const FilterTerm&, const FilterTerm&) = default;
};

/// What in a filter isn't understood, to be underlined.
struct FilterMistake {
    std::size_t position = 0;  ///< in bytes
    std::size_t length = 0;
    std::string hint;
};

/// A filter as it is typed: conditions between blanks, all of which a game has to meet. What isn't understood
/// is left out and told; the rest applies.
///
///     carlsen "wijk aan zee"       words, and words with blanks in quotes
///     white:carlsen black:anand    also event:, site:, opening:, round:
///     elo>2500 elo:2400-2600       numbers: elo, year, moves; by : = < > <= >= and ranges
///     eco:B90-B99 eco:B9           codes and their beginnings
///     result:1-0                   1-0, 0-1, 1/2 and *
struct FilterLine {
    std::vector<FilterTerm> terms;
    std::vector<FilterMistake> mistakes;

    static FilterLine parse(std::string_view line);
};

}  // namespace velmora
