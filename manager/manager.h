#pragma once

#include <string>

#include "channel/command_sink.h"
#include "channel/line_queue.h"
#include "manager/interface_commands.h"
#include "manager/referee_state.h"

namespace velmora {

struct EngineVariables;

/// The referee: the only writer of the authoritative game, on a thread of its own.
///
/// Its owner constructs it, runs operator() on a std::thread, puts "0 quit" on its queue and joins before it
/// destroys it. Lines reach it through put_command(); what it has to say goes to the window line by line.
/// It acts only when a line arrives: each line is dispatched by its sender, then the game takes one step.
class Manager : public CommandSink {
public:
    /// `window` must outlive the Manager; `program_path` is argv[0].
    Manager(CommandSink& window, std::string program_path);
    ~Manager() override;

    Manager(const Manager&) = delete;  // its address is known to the thread and to the engine drivers
    Manager& operator=(const Manager&) = delete;

    /// The thread's whole life: returns after "quit".
    void operator()();

    /// Puts one line on the queue: sender id, a blank and the command. Any thread.
    void put_command(const std::string& line) override;

    /// A copy of all that is known of the engine in the first seat; std::logic_error when there is none. Any
    /// thread; never waits for an engine.
    EngineVariables get_enginevariables() const;

    /// Whether the first seat is filled. Any thread.
    bool has_engine() const;

private:
    void take_turn(const std::string& line);
    void dispatch(const std::string& line);
    void report(const std::string& text);

    const std::string m_program_path;
    LineQueue m_queue;
    RefereeState m_state;
    InterfaceCommands m_commands;
};

}  // namespace velmora
