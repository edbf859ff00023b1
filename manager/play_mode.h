#pragma once

#include "game/game_result.h"
#include "manager/draw_offers.h"
#include "manager/engine_seats.h"
#include "manager/referee_state.h"

namespace velmora {

/// A person against the first engine. The person's clock runs in the window alone; nobody loses on time here.
///
/// The colours aren't chosen anywhere: whoever moves takes the side to move. The window's menu says only
/// who is to begin, and a person who moves on the engine's turn takes its place.
class PlayMode {
public:
    PlayMode(RefereeState& state, EngineSeats& seats, DrawOffers& offers)
        : m_state(state), m_seats(seats), m_offers(offers) {}

    /// The engine takes the side to move and starts. Does nothing while it thinks on its own turn.
    void go();

    /// The person moves next; which colour is whose shows with the move.
    void play_other();

    /// A move of the person has come: whoever is not to move now is the engine.
    void fix_colours();

    /// What "new" does beside the reset of engines and position.
    void new_game();

    GameEnd step();

private:
    GameEnd user_moved();
    GameEnd engine_moved();
    GameEnd replace_crashed();
    void send_names(const GuiEngine& engine);

    RefereeState& m_state;
    EngineSeats& m_seats;
    DrawOffers& m_offers;
};

}  // namespace velmora
