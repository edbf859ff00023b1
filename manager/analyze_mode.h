#pragma once

#include "manager/engine_seats.h"
#include "manager/referee_state.h"

namespace velmora {

/// The first engine analyses whatever position is on the board, without a limit.
///
/// The search is "go infinite", so no clock runs and no move of the engine's counts: a "bestmove" here is
/// the answer to our own "stop". The colour of the engine is set to the side to move, for the window shows
/// the search output at the place of that side.
class AnalyzeMode {
public:
    AnalyzeMode(RefereeState& state, EngineSeats& seats) : m_state(state), m_seats(seats) {}

    /// Enters the mode and analyses the present position.
    void analyze_position();

    /// Follows the person's move, if there is one.
    void step();

private:
    bool is_ready();

    RefereeState& m_state;
    EngineSeats& m_seats;
};

}  // namespace velmora
