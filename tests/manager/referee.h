#pragma once

#include <string>
#include <thread>
#include <vector>

#include "manager/manager.h"
#include "recording_window.h"

namespace velmora::test {

/// A Manager on its thread with a recording window; ends with the test.
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

    /// Sends "quit" and gives everything that the referee said up to its answer.
    std::vector<std::string> quit() {
        say("quit");
        return m_window.take_until("quit");
    }

    RecordingWindow& window() { return m_window; }
    Manager& manager() { return m_manager; }

private:
    RecordingWindow m_window;
    Manager m_manager;
    std::thread m_thread;
};

}  // namespace velmora::test
