#pragma once

#include <cstdint>
#include <string_view>

namespace velmora {

/// The standing of a running match, by seat. The tournament's file keeps a record of its own.
struct MatchScore {
    std::int32_t wins_first = 0;
    std::int32_t wins_second = 0;
    std::int32_t draws = 0;

    /// Counts a result token; any other word counts nothing.
    constexpr void add(std::string_view result_word, bool first_is_white) {
        if (result_word == "1/2-1/2") ++draws;
        if (result_word == "1-0") ++(first_is_white ? wins_first : wins_second);
        if (result_word == "0-1") ++(first_is_white ? wins_second : wins_first);
    }

    bool operator==(const MatchScore&) const = default;
};

}  // namespace velmora
