#pragma once

#include "channel/to_referee.h"
#include "game/game_result.h"
#include "manager/draw_offers.h"
#include "manager/engine_seats.h"
#include "manager/referee_state.h"

namespace velmora {

/// What a person may do beside moving: resign, offer or claim a draw, take back, have the engine move at
/// once, and lose on time.
///
/// All of it is of a game against the first engine, of which the referee knows the position and whose turn it
/// is. Two people play without the referee: they tell it a result and nothing else.
///
/// Whose side is whose follows from the turn and not from the engine's colour, which is provisional until the
/// person has moved.
class TableTalk {
public:
    TableTalk(RefereeState& state, EngineSeats& seats, DrawOffers& offers)
        : m_state(state), m_seats(seats), m_offers(offers) {}

    GameEnd resign();
    GameEnd offer_draw();
    GameEnd claim_draw();
    /// The person's flag has fallen.
    GameEnd flag();
    GameEnd note_result(const to_referee::NoteResult& command);

    /// Stops the engine first; tells the window in any case, which waits for it.
    void take_back();
    void move_now();
    void set_lose_on_time(bool on) { m_lose_on_time = on; }
    void set_clock(const to_referee::SetClock& command);

    void person_moved() { m_offers.person_moved(); }
    /// Another game, or another position, has come.
    void begin_game() { m_offers.begin(); }

    /// The loss of an engine whose flag has fallen while it thinks, be its move there or not.
    GameEnd watch_clock();

private:
    bool is_going_on() const;
    Side person() const;
    GameEnd end(const GameOutcome& outcome, const char* termination);

    RefereeState& m_state;
    EngineSeats& m_seats;
    DrawOffers& m_offers;
    bool m_lose_on_time = false;
};

}  // namespace velmora
