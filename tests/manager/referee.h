#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "manager/manager.h"
#include "tests/manager/recording_window.h"
#include "tests/support/workplace.h"

namespace velmora::test {

using Lines = std::vector<std::string>;

/// A Manager on its thread with a recording window, in a working directory of its own; ends with the test.
class Referee {
public:
    explicit Referee(std::chrono::milliseconds probe_interval = std::chrono::milliseconds(10))
        : m_manager(m_window, "velmora", probe_interval), m_thread(std::ref(m_manager)) {}

    ~Referee() {
        m_window.hold_at({});
        say("quit");
        m_thread.join();
    }

    Referee(const Referee&) = delete;
    Referee& operator=(const Referee&) = delete;

    /// Sends a command as the window does.
    void say(const std::string& command) {
        ++m_said;
        m_manager.put_command("0 " + command);
    }

    /// The referee's next line. Milliseconds, which no test knows, read "#".
    std::string next_line() {
        std::string line = m_window.take().value_or("(nothing)");
        for (const char* word : {"wtime ", "btime ", "emt "}) {
            if (line.starts_with(word)) line = word + std::string("#");
        }
        return line;
    }

    /// What it says up to `line`, or up to the last line before it falls silent.
    Lines take_until(const std::string& line) {
        Lines lines;
        do {
            lines.push_back(next_line());
        } while (lines.back() != line && lines.back() != "(nothing)");
        return lines;
    }

    /// Sends "quit" when all else has been dealt with, and gives everything that the referee says up to its
    /// answer.
    Lines quit() {
        say("wake_up");
        Workplace::wait_for([this] { return m_window.taken() >= m_said; });
        say("quit");
        return take_until("quit");
    }

    RecordingWindow& window() { return m_window; }
    Manager& manager() { return m_manager; }

    const Workplace workplace;

private:
    RecordingWindow m_window;
    std::uint64_t m_said = 0;  // commands so far
    Manager m_manager;
    std::thread m_thread;
};

}  // namespace velmora::test
