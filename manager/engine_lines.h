#pragma once

#include <string_view>

#include "channel/engine_line.h"
#include "manager/engine_seats.h"
#include "manager/game_result.h"
#include "manager/referee_state.h"

namespace velmora {

/// The receiving end of what the engines say.
class EngineLines {
public:
    EngineLines(RefereeState& state, EngineSeats& seats) : m_state(state), m_seats(seats) {}

    /// Handles a whole queue line: seat number, instance id, word, rest.
    GameEnd process(Seat seat, std::string_view line);

private:
    GameEnd best_move(const EngineLine& line);
    GameEnd resign(Seat seat);
    void info(Seat seat, std::string_view rest);

    RefereeState& m_state;
    EngineSeats& m_seats;
};

}  // namespace velmora
