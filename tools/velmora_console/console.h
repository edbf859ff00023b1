#pragma once

#include <cstdint>
#include <cstdio>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>

#include "channel/command_sink.h"

namespace velmora {

/// Both ends of the console's channel: commands of the input go to the referee, what the referee says is
/// printed.
///
/// The end of the input stands for a "quit" that waits its turn, and a match that runs is played to its end
/// first. Lines come in on the referee's thread and commands on the main thread.
///
/// The program without its window: for scripts, for matches on a machine without a display, and for tests
/// of the referee by whole conversations. A pipe ends its input as soon as the commands are written, long
/// before they have been carried out; so the console counts the lines that it has sent and that the
/// referee has taken, and follows matches by the effects of the lines.
class Console : public CommandSink {
public:
    /// Prints to `out`. `leave` is called, from any thread, when the referee has answered "quit".
    Console(std::FILE* out, std::function<void()> leave) : m_out(out), m_leave(std::move(leave)) {}

    /// Where commands go; set once, before the first one.
    void set_referee(CommandSink& referee) { m_referee = &referee; }

    /// Takes bytes of the input, any number of lines or parts of them.
    void take_input(std::string_view bytes);

    /// The input is at its end; what stands there without a line end is a line.
    void end_input();

    /// Has the referee look at the engines, if it waits for one: nobody else tells it of a death or a
    /// silence. To be called once a second.
    void wake_up();

    /// Prints a line of the referee; with the next flush() it is on its way.
    void put_command(const std::string& line) override;

    /// Writes the lines since the last one by one write.
    ///
    /// An output that nobody reads any more ends the program, and a match with it.
    void flush() override;

    void acknowledge(std::uint64_t taken) override;

private:
    void command(std::string_view line);
    void send(std::string_view command);
    void quit_when_done();
    void quit();

    std::FILE* const m_out;
    const std::function<void()> m_leave;
    CommandSink* m_referee = nullptr;  // borrowed; outlives the console's use
    std::string m_partial_line;        // main thread only
    std::mutex m_mutex;
    bool m_input_ended = false;      // guarded by m_mutex
    bool m_match_running = false;    // guarded by m_mutex
    bool m_engine_searches = false;  // guarded by m_mutex; or may do so
    bool m_quit_sent = false;        // guarded by m_mutex
    std::uint64_t m_sent = 0;        // guarded by m_mutex; lines
    std::uint64_t m_taken = 0;       // guarded by m_mutex; of these, how many have reached the referee
};

}  // namespace velmora
