#pragma once

#include <cstdint>
#include <string>

#include "base/log_file.h"
#include "base/stopwatch.h"
#include "channel/command_sink.h"
#include "channel/to_referee.h"

namespace velmora {

/// The window's end of the channel to the referee: gives each command the window's sender id, and writes both
/// directions to "interface.log" while logging is on.
///
/// Both sides count the window's commands, and a line of the referee's is believed if it had taken the
/// command that matters. Time stamps wouldn't do: the order in which the two queues are read is no order of
/// time.
class ManagerLink {
public:
    explicit ManagerLink(CommandSink& manager);

    /// Puts a command on the referee's queue.
    void send(const to_referee::Line& command) { send_text(to_referee::encode(command)); }
    /// The same for the text of a command, without sender id and line end, be it one of the language or not.
    void send_text(const std::string& command);

    /// Notes a line that came from the referee, which had taken that many of the commands when it wrote it.
    void receive(const std::string& line, std::uint64_t taken);

    /// Whether the referee knew of the last change of the position, by a move of the person, a position or a
    /// new game, when it wrote the line that came last. If not, the two have crossed.
    bool referee_knows_position() const { return m_taken >= m_position_sent; }

    /// The same of the last command that sends the referee to look for engines.
    bool referee_took_load() const { return m_taken >= m_load_sent; }

    /// The same of the last start of a match. If not, the line belongs to a game before that match.
    bool referee_took_match() const { return m_taken >= m_match_sent; }

    /// Whether the window is about to close: "quit" has been sent.
    bool is_leaving() const { return m_leaving; }

    /// On truncates and opens the log, off closes it.
    void set_logging(bool on);

private:
    std::string stamp() const;

    CommandSink& m_manager;
    std::uint64_t m_sent = 0;           // commands so far
    std::uint64_t m_position_sent = 0;  // of these, up to the last that changed the position
    std::uint64_t m_load_sent = 0;      // likewise, the last that loads engines
    std::uint64_t m_match_sent = 0;     // likewise, the last that starts a match
    std::uint64_t m_taken = 0;          // of these, what the referee had taken when it wrote its last line
    bool m_leaving = false;
    LogFile m_log;
    Stopwatch m_session;  // runs from construction; the log's stamps count from the program's start
};

}  // namespace velmora
