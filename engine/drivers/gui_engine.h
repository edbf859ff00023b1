#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <pthread.h>
#include <stop_token>
#include <string>
#include <thread>

#include "base/log_file.h"
#include "channel/command_sink.h"
#include "engine/drivers/engine_record.h"

namespace velmora {

class BaseEngine;
class ChessPosition;
class Engio;
class PlayingEngine;

/// One engine place of the referee: the process, its reader thread, its record and the present driver.
///
/// With no driver every question has a harmless answer and every command does nothing. An engine of xboard
/// version 1 is told nothing either: it has a record and a clock, but no driver that plays. All operations
/// are called on the referee's thread; the engine's lines reach `manager` from the reader thread, each as the
/// engine's number, a blank, the instance id, a blank and the line.
///
/// The probe and the players are different classes, not one driver with a state, since hardly anything that
/// the one does makes sense for the other. Hence two pointers to one object: `m_engine` for what holds for
/// every driver, `m_player` for what only a player can be told.
///
/// The order in which things end is the same everywhere, and must be: the process is told to quit, the
/// reader is joined, then the driver goes. A driver that goes first would be called by the reader.
class GuiEngine {
public:
    /// `probe_interval` is the sleep between two looks for the engine's answer in the handshake. Once
    /// `leaving` is stopped, nothing waits for the engine any more: a probe fails, and so does a write that
    /// isn't taken.
    explicit GuiEngine(std::chrono::milliseconds probe_interval = std::chrono::milliseconds(50),
                       std::stop_token leaving = {});
    /// Quits the process and joins the reader, as unload_engine().
    ~GuiEngine();

    GuiEngine(const GuiEngine&) = delete;
    GuiEngine& operator=(const GuiEngine&) = delete;

    /// Starts the program and finds out its protocol; blocks for up to 15 seconds. Afterwards is_alive()
    /// tells whether an engine is there. An `id` below 1 only makes a driver, no process. `manager` may be
    /// null: then lines go nowhere; it must outlive the loaded engine.
    ///
    /// The probe may need two processes. There are xboard programs that end at the word "uci", which they
    /// take for nonsense; such a program is started once more and greeted with "xboard".
    void load_engine(CommandSink* manager, std::uint32_t id, const std::string& filename, Protocol protocol);

    /// Replaces the process by a fresh one of the same program. The caller then gives back what a driver does
    /// not keep, in this order: set_debug_stream() and set_logging(), set_ponder(), set_instance_id(),
    /// set_enginevariables() with the record of before, set_level().
    /// Serves an engine that has crashed, and one of xboard's that cannot begin a second game ("reuse=0").
    void reload_engine();

    /// Quits the process, joins the reader and deletes the driver. A process that ignores "quit" stays
    /// behind.
    void unload_engine();

    /// A copy of who the engine is and how it is set. Throws std::logic_error with no driver.
    EngineVariables get_enginevariables() const;
    /// Takes over name, file name, player name, Elo, handicap and the values of the options that the engine
    /// announced, and sends all its options; neither level nor protocol.
    /// The level is left out since it comes from the game and not from the engine; the caller hands it out
    /// afterwards, because only then the handicap is known by which the clock is cut.
    void set_enginevariables(const EngineVariables& variables);

    /// Sets an option that the engine announced. An engine that thinks about its move gets it afterwards; an
    /// analysis or a ponder search is interrupted for it.
    void set_option(const std::string& name, const std::string& value);

    bool is_alive() const;
    bool has_crashed() const;

    /// A copy of how the engine stands in the game, whose clock runs on as the engine's does: level, clock,
    /// colour, and whether it thinks; a caller stops a thinking engine before go(), which throws otherwise,
    /// while a ponder search is go()'s own affair. With no driver a clock without time.
    /// Copied under the driver's mutex: the reader's thread stops the clock at the moment at which a move
    /// comes.
    PlayState state() const;
    /// Sets the level, and the clock from it with the record's handicap.
    void set_level(const Level& level);
    bool is_white() const;
    void set_white(bool white);
    void set_opponent_time(std::int64_t milliseconds);
    void set_moves_done(std::int32_t moves);
    /// Gives the clock, which isn't running, another time.
    void set_time_left(std::int32_t milliseconds);

    void set_ponder(bool on);
    void new_game();
    void set_position(const ChessPosition& position);
    void go();
    void go_infinite();
    void stop();
    /// Has an engine that thinks about its move make it at once; the move counts.
    void move_now();
    /// Tells the engine that its opponent offers a draw; nothing where the protocol has no word for it.
    void offer_draw();

    /// Switches the engine's log file and the driver's trace; kept for later loads.
    void set_logging(bool on);
    /// Where the driver's trace goes; must outlive the loaded engine. Null for nowhere.
    void set_debug_stream(LogFile* stream);
    void set_instance_id(std::uint64_t instance_id);

    /// The thread that the engine's lines arrive on; none without a process. Stands until the next load or
    /// unload.
    /// The handle is for placing the thread on a core, and for nothing that would outlast it.
    std::optional<pthread_t> reader();

private:
    void start_process();
    void end_process();
    void restart_process();
    void replace_probe();
    void quit_engine();
    template <class Change>
    void change_record(Change change);

    const std::chrono::milliseconds m_probe_interval;
    const std::stop_token m_leaving;

    CommandSink* m_manager = nullptr;  // borrowed; null before the first load
    std::unique_ptr<Engio> m_engio;
    EngineRecord m_record;  // shared with the driver, guarded by the driver's mutex while there is one
    std::unique_ptr<BaseEngine> m_engine;  // null when none is loaded
    PlayingEngine* m_player = nullptr;     // *m_engine where that plays: null with no driver and with a probe
    Protocol m_protocol = Protocol::autodetect;
    std::string m_filename;
    std::uint32_t m_engine_id = 0;
    bool m_debug = false;
    std::thread m_reader;  // runs *m_engio
};

}  // namespace velmora
