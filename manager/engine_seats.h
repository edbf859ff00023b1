#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <memory>
#include <random>
#include <string>

#include "channel/command_sink.h"
#include "channel/to_window.h"
#include "chess/board/side.h"
#include "engine/drivers/gui_engine.h"
#include "manager/death_count.h"
#include "manager/manager_mode.h"
#include "manager/published_engine.h"
#include "manager/referee_state.h"

namespace velmora {

/// One place at the table. The engine is null while the place is empty.
struct EngineSeat {
    std::unique_ptr<GuiEngine> engine;
    std::string path;               ///< of the program, as it was loaded
    std::uint64_t instance_id = 0;  ///< tells the lines of this engine from those of one that sat here before
    DeathCount deaths;
};

/// The two places of the engines: who sits there, and what is said to both.
///
/// Every engine that takes a place is given the log, the ponder flag, a fresh instance id and the time
/// control. Manager thread only, but for published().
///
/// Loading goes through here in all modes, so that no engine comes to a seat without a thing that the
/// others got. A crash is handled here as well, since it means the same thing: another process, told
/// everything again. The first seat is special in one point alone, the copy of its record for the window's
/// dialogs.
class EngineSeats {
public:
    /// `line_sink` receives what the engines say, on their reader threads.
    EngineSeats(RefereeState& state, CommandSink& line_sink, std::chrono::milliseconds probe_interval);
    ~EngineSeats();

    EngineSeats(const EngineSeats&) = delete;  // the engines' threads hold the sink; each seat has one owner
    EngineSeats& operator=(const EngineSeats&) = delete;

    /// The engine in a place, null when it is empty.
    GuiEngine* engine(Seat seat) const { return at(seat).engine.get(); }

    /// Whether the place is filled and its program runs.
    bool is_alive(Seat seat) const;

    /// Whether `instance_id` is that of the engine now in the place.
    bool is_current(Seat seat, std::uint64_t instance_id) const;

    /// Starts a program in a place, after whoever sits there has left. The window learns the name, or that it
    /// failed; then the place stays empty.
    /// The place is emptied first even if the new program then fails: two programs in memory at once, each
    /// with its hash table, may be more than the machine has.
    void load_engine(Seat seat, const std::string& path, Protocol protocol);

    /// The same by the name in the list of installed engines, with the settings stored there. An empty name
    /// or one that isn't in the list does nothing. Throws std::logic_error for a place that doesn't exist.
    void load_installed_engine(Seat seat, const std::string& name);

    /// Starts the program of a filled place anew with the settings that it had; both engines and the position
    /// are at the start of a game afterwards. A program that doesn't start any more leaves the place empty.
    void reload(Seat seat);

    /// What to do with an engine that died: tells the user and reloads it, the game staying as it is. One
    /// that keeps dying leaves its place empty.
    void replace_crashed(Seat seat);

    /// The engine of a place has moved: what it died of before is over.
    void note_move(Seat seat) { at(seat).deaths.clear(); }

    /// Quits and destroys the engine of a place, if there is one.
    void unload(Seat seat);

    /// Empties both places; what goes wrong with an engine is reported on standard error.
    void unload_all() noexcept;

    void stop_all();
    void new_game_for_all();
    void set_ponder(bool ponder);
    bool ponders() const { return m_ponder; }
    void pass_debug_flag();
    /// Hands out the time control of the state, and tells the window each engine's clock.
    /// Also in the middle of a game: the engines' clocks begin anew with it.
    void pass_level();

    /// Sets an option of the first engine, which gets it as soon as it is at rest.
    void set_option(const std::string& name, const std::string& value);

    /// What other threads may know of the first engine.
    const PublishedEngine& published() const { return m_published; }

private:
    EngineSeat& at(Seat seat) { return m_seats[index(seat)]; }
    const EngineSeat& at(Seat seat) const { return m_seats[index(seat)]; }
    static std::size_t index(Seat seat) { return seat == Seat::first ? 0 : 1; }

    void welcome(Seat seat);
    void report_failed_load(Seat seat, const std::string& path);
    void send_name(Seat seat, const std::string& name);
    void publish();

    RefereeState& m_state;
    CommandSink& m_line_sink;
    const std::chrono::milliseconds m_probe_interval;
    std::array<EngineSeat, 2> m_seats;
    std::mt19937_64 m_rng;  // fixed seed: the ids differ within a session, which is all that is needed
    bool m_ponder = false;
    PublishedEngine m_published;
};

/// Which side it plays.
Side side_of(const GuiEngine& engine);

/// What is left on its clock, for the window.
to_window::SetClock clock_of(const GuiEngine& engine);

/// Gives an engine the position and stops a search that still runs, so that it can be told to go.
void prepare_to_move(GuiEngine& engine, const ChessPosition& position);

}  // namespace velmora
