#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "game/game_result.h"
#include "manager/engine_seats.h"
#include "manager/referee_state.h"

namespace velmora {

/// Draws that are offered in a game of a person against the first engine.
///
/// An xboard engine has a word for an offer and answers for itself; an offer of its own stands until the
/// person has moved, and the person's until the engine has. UCI has no such word: there the engine's last
/// evaluations decide at once. A draw is agreed when both have offered it.
class DrawOffers {
public:
    DrawOffers(RefereeState& state, EngineSeats& seats) : m_state(state), m_seats(seats) {}

    /// Another game, or another position of it: what was offered and said belongs to the one before.
    void begin();

    /// Search output of the first engine, without its first word.
    void note_search(std::string_view text);
    void engine_moved();
    void person_moved() { m_by_engine = false; }

    // REQUIRE: a game against the first engine is going on.
    GameEnd offered_by_person(Side person);
    GameEnd offered_by_engine();

private:
    std::optional<int> latest_value() const;
    bool engine_accepts() const;
    GameEnd agree();
    bool engine_speaks_uci() const;

    RefereeState& m_state;
    EngineSeats& m_seats;
    bool m_by_person = false;  // and not answered yet
    bool m_by_engine = false;
    std::string m_latest;                     // the last search output with a score
    std::deque<std::optional<int>> m_values;  // what each of the engine's last moves was worth to it
};

}  // namespace velmora
