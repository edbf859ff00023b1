#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/search_info.h"
#include "channel/engine_line.h"
#include "channel/to_referee.h"
#include "manager/engine_seats.h"
#include "manager/referee_state.h"

namespace velmora {

/// The first engine goes through the positions of a line, one search behind the other.
///
/// A search is begun by the answer to the one before, so that no time passes between two; the referee knows
/// the whole list from the start. What was found out about a position is told at once, in the engine's own
/// words, and judged by whoever has the record: this room knows neither verdicts nor comments. The position
/// of the game isn't touched, and the person may go on looking at it.
///
/// An engine that dies is loaded again and goes on at the same position; one that dies there once more has
/// the position left out. One that doesn't answer ends the run, since nothing is known of when it will.
class ReviewMode {
public:
    ReviewMode(RefereeState& state, EngineSeats& seats) : m_state(state), m_seats(seats) {}

    /// Enters the mode and begins with the first of the plies. A command that can't be read, or no engine,
    /// ends the run before it has begun.
    void start(const to_referee::Review& command);

    /// Ends a run before its end, and says so; nothing without one.
    void stop();

    bool is_running() const { return m_state.mode == ManagerMode::review; }

    /// Takes search output of the engine, without its first word.
    void note_search(std::string_view text);
    /// Takes the engine's answer.
    void take_answer(const EngineLine& line);

    /// Looks whether the engine lives and answers. An engine's last words count: they are asked for by
    /// `has_waiting_lines`.
    void watch(const std::function<bool()>& has_waiting_lines);

private:
    using Clock = std::chrono::steady_clock;

    bool read(const to_referee::Review& command);
    void search();
    void go_on();
    void leave_out();
    bool is_overdue() const;
    void finish(to_window::ReviewFinished::Reason reason);

    RefereeState& m_state;
    EngineSeats& m_seats;

    std::int32_t m_run = 0;
    Level m_level;
    ChessPosition m_start;
    std::vector<Move> m_moves;
    std::vector<std::size_t> m_plies;  // to be searched, the next one last
    int m_deaths = 0;                  // at the present position
    Clock::time_point m_heard;         // since when an answer is waited for
    std::string m_found;               // the engine's last exact word on the position
};

}  // namespace velmora
