#pragma once

#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "manager/manager.h"
#include "recording_window.h"
#include "workplace.h"

namespace velmora::test {

using Lines = std::vector<std::string>;

/// A Manager on its thread with a recording window, in a working directory of its own; ends with the test.
class Referee {
public:
    Referee() : m_manager(m_window, "velmora"), m_thread(std::ref(m_manager)) {}

    ~Referee() {
        say("quit");
        m_thread.join();
    }

    Referee(const Referee&) = delete;
    Referee& operator=(const Referee&) = delete;

    /// Sends a command as the window does.
    void say(const std::string& command) { m_manager.put_command("0 " + command); }

    /// Makes a scripted engine, loads it, and drops what the referee says of it.
    void load(const std::string& name, const std::string& script) {
        say("load 1 filename " + workplace.add_engine(name, script));
        m_window.take_until([](const std::string& line) { return line.starts_with("engine1name "); });
    }

    /// What the referee says up to `line`. Milliseconds, which no test knows, read "#".
    Lines take_until(const std::string& line) {
        return masked(m_window.take_until([&](const std::string& said) { return mask(said) == line; }));
    }

    /// What the referee says to the commands so far. The end shows by the answer to a last one that changes
    /// nothing as long as there is no book to drill.
    Lines take_answers() {
        say("learnopenings 3");
        Lines lines = take_until("reset mode");
        lines.pop_back();
        m_window.take_until([](const std::string& said) { return said.starts_with("telluser No_Polyglot"); });
        return lines;
    }

    /// Sends "quit" and gives everything that the referee says up to its answer.
    Lines quit() {
        say("quit");
        return take_until("quit");
    }

    RecordingWindow& window() { return m_window; }
    Manager& manager() { return m_manager; }

    const Workplace workplace;

private:
    static std::string mask(const std::string& line) {
        for (const char* word : {"wtime ", "btime ", "emt "}) {
            if (line.starts_with(word)) return word + std::string("#");
        }
        return line;
    }

    static Lines masked(Lines lines) {
        for (auto& line : lines) line = mask(line);
        return lines;
    }

    RecordingWindow m_window;
    Manager m_manager;
    std::thread m_thread;
};

}  // namespace velmora::test
