#pragma once

#include <cstdint>

#include "channel/sender.h"

namespace velmora {

/// What the referee is doing; the numbers are told.
enum class ManagerMode : std::int32_t {
    analyze = 0,      ///< engine 1 analyses the position
    play = 1,         ///< a person against engine 1
    human_human = 2,  ///< the window keeps the game alone
    match = 3,        ///< engine 1 against engine 2, a tournament
    learn = 4,        ///< a person against an opening book
    review = 5,       ///< engine 1 goes through the positions of a game
};

/// Whose move the referee waits for.
enum class MoveTurn : std::int32_t { none = 0, user = 1, engine1 = 2, engine2 = 3 };

constexpr MoveTurn turn_of(Seat seat) { return seat == Seat::first ? MoveTurn::engine1 : MoveTurn::engine2; }

constexpr bool is_engine_turn(MoveTurn turn) {
    return turn == MoveTurn::engine1 || turn == MoveTurn::engine2;
}

/// REQUIRES: is_engine_turn(turn).
constexpr Seat seat_of(MoveTurn turn) { return turn == MoveTurn::engine1 ? Seat::first : Seat::second; }

}  // namespace velmora
