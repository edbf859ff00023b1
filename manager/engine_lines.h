#pragma once

#include <string_view>

#include "channel/engine_line.h"
#include "game/game_result.h"
#include "manager/draw_offers.h"
#include "manager/engine_seats.h"
#include "manager/referee_state.h"
#include "manager/review_mode.h"

namespace velmora {

/// The receiving end of what the engines say.
///
/// Whether a move counts is decided here, once for both seats: it must come from the engine that sits there
/// now, the mode must be one in which engines move, and it must be that engine's turn. What fails this is
/// late, not wrong, and is dropped without a word. What passes and is no legal move loses the game.
class EngineLines {
public:
    EngineLines(RefereeState& state, EngineSeats& seats, DrawOffers& offers, ReviewMode& review)
        : m_state(state), m_seats(seats), m_offers(offers), m_review(review) {}

    /// Handles a whole queue line: seat number, instance id, word, rest.
    /// A move isn't played here, it is left as the pending one: the mode's next step plays it.
    GameEnd process(Seat seat, std::string_view line);

private:
    GameEnd best_move(const EngineLine& line);
    GameEnd resign(Seat seat);
    GameEnd offer_draw(Seat seat);
    void info(Seat seat, std::string_view rest);

    RefereeState& m_state;
    EngineSeats& m_seats;
    DrawOffers& m_offers;
    ReviewMode& m_review;
};

}  // namespace velmora
