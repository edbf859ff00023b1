#pragma once

#include <string>

#include "channel/command_sink.h"
#include "channel/log_file.h"
#include "engine/stopwatch.h"

namespace velmora {

/// The window's end of the channel to the referee: gives each command the window's sender id, and writes both
/// directions to "interface.log" while logging is on.
class ManagerLink {
public:
    explicit ManagerLink(CommandSink& manager);

    /// Puts a command, without sender id and line end, on the referee's queue.
    void send(const std::string& command);

    /// Whether a move of the engine can be meant for the game as it stands: since the last position that was
    /// sent, the engine has been asked for one, by a move of the person or "go", and the referee has heard of
    /// it.
    bool awaits_engine_move() const { return m_asked_engine && m_heard; }
    /// Notes that the referee has named the players, as it does whenever it hears that the engine is asked.
    void note_names() { m_heard = m_asked_engine; }

    /// Whether the referee has been sent a position since the last "new": a start that it gives for the new
    /// game has crossed it, and the referee has gone on to what was sent.
    bool sent_position_since_new() const { return m_position_since_new; }

    /// Notes a line that came from the referee.
    void log_received(const std::string& line);

    /// On truncates and opens the log, off closes it.
    void set_logging(bool on);

private:
    std::string stamp() const;

    CommandSink& m_manager;
    bool m_asked_engine = false;
    bool m_heard = false;
    bool m_position_since_new = false;
    LogFile m_log;
    Stopwatch m_session;  // runs from construction; the log's stamps count from the program's start
};

}  // namespace velmora
