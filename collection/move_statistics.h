#pragma once

#include <cstdint>
#include <type_traits>

#include "collection/game_columns.h"

namespace velmora {

/// How the games went that have one move in one position. Also the layout in a file.
struct MoveStatistics {
    std::uint64_t rating_sum = 0;  ///< of both players, as far as they have a rating
    std::uint32_t rated = 0;       ///< how many players these are
    std::uint32_t games = 0;       ///< each once, also when the position came up several times
    std::uint32_t white_wins = 0;
    std::uint32_t draws = 0;
    std::uint32_t black_wins = 0;
    std::uint16_t last_year = 0;  ///< 0 when no game has a year
    std::uint16_t move = 0;       ///< move_code(); 0 for games that end here

    /// The mean rating of the players, 0 when nobody has one.
    ///
    /// Of both, which tells how strong the games are; of those who played the move it would say more about
    /// them.
    std::uint32_t mean_rating() const {
        return rated == 0 ? 0 : static_cast<std::uint32_t>((rating_sum + rated / 2) / rated);
    }

    void add(const GameColumns& game);
    void add(const MoveStatistics& other);
};

static_assert(sizeof(MoveStatistics) == 32 && std::is_trivially_copyable_v<MoveStatistics>);

}  // namespace velmora
