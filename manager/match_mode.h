#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <pthread.h>
#include <string>

#include "chess/board/game_outcome.h"
#include "game/game_result.h"
#include "game/gui_book.h"
#include "manager/engine_seats.h"
#include "manager/referee_state.h"
#include "tournament/tournament.h"

namespace velmora {

/// The first engine against the second, game after game as the tournament's file prescribes; the window only
/// looks on. The first seat plays White in every game: colours change by the names that are loaded.
///
/// A game is a chain of answers. Each step plays the move that came, says it to the window, looks for the
/// end and has the other engine go; then the thread is free until the next line. watch() is for what sends
/// no more lines.
///
/// An engine that fails loses, it isn't started again: a restarted one would have another clock and an
/// empty hash table. Both are loaded afresh for each game, so that no game depends on the one before.
class MatchMode {
public:
    MatchMode(RefereeState& state, EngineSeats& seats);

    /// Takes the tournament of that name and its openings. A failure is told to the user, and no tournament
    /// is loaded then.
    void load_tournament(const std::string& name);

    /// Takes another file of openings.
    void set_book(const std::string& path);

    /// Starts at the first game that has no result.
    void start_tournament();

    GameEnd step();

    /// The end of a running game whose engine in `seat` has died or is far beyond its time: what would else
    /// hang for ever. One that has died is asked for by `has_waiting_lines`: its last words count.
    GameEnd watch(Seat seat, const std::function<bool()>& has_waiting_lines) const;

    /// Whether a game has begun whose opening leaves no move; the next step() ends it.
    bool is_over_at_start() const { return is_running() && m_over_at_start; }

    /// The thread that is about to bring the lines of a young search; none when there is no such search.
    std::optional<pthread_t> answering_thread() const;

    /// Stores a finished game, and starts the next one or ends the tournament.
    /// The file is written after each game, so that a tournament that is cut off goes on where it was.
    void game_over(GameResult ended);

    /// Leaves a running match: the engines stop, the tournament's file stands as it is. Does nothing in any
    /// other mode.
    void leave();

    /// leave(), and the window is told.
    void cancel();

private:
    bool is_running() const { return m_state.mode == ManagerMode::match; }
    bool is_game_running() const;
    void start_game();
    bool seat_engine(Seat seat, const std::string& name);
    void announce(const TournamentGame& game);
    void show_opening();
    void start_first_mover();
    GameEnd engine_moved(Seat seat, Move move);
    bool oversteps(const GuiEngine& engine) const;
    void play(Seat seat, Move move);
    void start_search(Seat seat, std::chrono::steady_clock::time_point start);
    void save_tournament();
    void finish_run();

    GuiEngine& engine(Seat seat) const { return *m_seats.engine(seat); }

    RefereeState& m_state;
    EngineSeats& m_seats;
    Tournament m_tournament;  // its event is empty while none is loaded
    GuiBook m_book;
    std::int32_t m_game_number = 0;
    bool m_over_at_start = false;
};

}  // namespace velmora
