#pragma once

#include <chrono>
#include <stop_token>
#include <string>

#include "channel/command_sink.h"
#include "channel/line_queue.h"
#include "engine/drivers/protocol_engine.h"
#include "engine/store/engine_variables.h"
#include "game/game_result.h"
#include "manager/analyze_mode.h"
#include "manager/draw_offers.h"
#include "manager/engine_lines.h"
#include "manager/engine_seats.h"
#include "manager/interface_commands.h"
#include "manager/learn_mode.h"
#include "manager/match_mode.h"
#include "manager/play_mode.h"
#include "manager/referee_state.h"
#include "manager/review_mode.h"
#include "manager/table_talk.h"

namespace velmora {

/// The referee: the only writer of the authoritative game, on a thread of its own.
///
/// Its owner constructs it, runs operator() on a std::thread, puts "0 quit" on its queue and joins before it
/// destroys it. Lines reach it through put_command(); what it has to say goes to the window line by line.
/// It acts only when a line arrives: each line is dispatched by its sender, then the game takes one step and
/// the watch looks at the engines. Nothing runs on a timer, so a game is driven by what the engines say.
///
/// The modes and commands are rooms of their own that share the RefereeState; this class owns them and
/// keeps the order of a turn. A room never ends a game itself: it returns the GameEnd, and settle() acts on
/// it when the room has returned. To end a game in a match seats new engines, which no function that still
/// holds the old one may see happen.
///
/// The members' order is the order of construction: the rooms hold references to what stands above them,
/// and the engines go before the queue into which their threads write.
class Manager : public CommandSink {
public:
    /// `window` must outlive the Manager; `program_path` is argv[0]; `probe_interval` is the sleep between
    /// two looks for the answer of an engine that is being loaded.
    Manager(CommandSink& window, std::string program_path,
            std::chrono::milliseconds probe_interval = ProtocolEngine::default_interval);
    ~Manager() override;

    Manager(const Manager&) = delete;  // its address is known to the thread and to the engine drivers
    Manager& operator=(const Manager&) = delete;

    /// The thread's whole life: returns after "quit".
    void operator()();

    /// Puts one line on the queue: sender id, a blank and the command. Any thread. An engine's line waits for
    /// flush() or a line of the window's; "0 quit" overtakes all others and cuts short what the referee waits
    /// for.
    void put_command(const std::string& line) override;
    void flush() override { m_queue.announce(); }

    /// A copy of all that is known of the engine in the first seat; std::logic_error when there is none. Any
    /// thread; never waits for an engine.
    /// A copy by intent: the window may ask while the referee waits 15 seconds for another engine's
    /// handshake.
    EngineVariables get_enginevariables() const { return m_seats.published().variables(); }

    /// Whether the first seat is filled. Any thread.
    bool has_engine() const { return m_seats.published().has_engine(); }

    const std::string& program_path() const { return m_program_path; }

    /// Carries out a line of the window on the calling thread, which must be the Manager's. Throws
    /// std::logic_error when it comes from somebody else.
    void process_command_from_interface(const std::string& line);

private:
    std::string next_line();
    void take_turn(const std::string& line);
    void forget_waiting_lines();
    GameEnd dispatch(const std::string& line);
    GameEnd process_engine1_line(const std::string& line) {
        return m_engine_lines.process(Seat::first, line);
    }
    GameEnd process_engine2_line(const std::string& line) {
        return m_engine_lines.process(Seat::second, line);
    }
    GameEnd step();
    bool has_waiting_lines(Seat seat) const;
    void settle(const GameEnd& end);
    void end_game(const GameOutcome& outcome);
    void announce(const GameOutcome& outcome);
    void contain(const std::string& failure);

    const std::string m_program_path;
    // What other threads touch, beside what the seats publish.
    LineQueue m_queue;
    std::stop_source m_leaving;  // stops whatever the thread waits for, once "quit" is on the queue

    std::uint64_t m_taken = 0;  // lines of the window that have left the queue
    RefereeState m_state;
    EngineSeats m_seats;
    AnalyzeMode m_analyze;
    DrawOffers m_offers;
    PlayMode m_play;
    LearnMode m_learn;
    MatchMode m_match;
    ReviewMode m_review;
    TableTalk m_talk;
    InterfaceCommands m_commands;
    EngineLines m_engine_lines;
};

}  // namespace velmora
