#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "channel/command_sink.h"

namespace velmora::test {

/// Stands in for the window: keeps every line of the referee and lets a test wait for one.
class RecordingWindow : public CommandSink {
public:
    using Accepts = std::function<bool(const std::string&)>;

    /// How long a test waits before it fails.
    static constexpr std::chrono::seconds patience{30};

    void put_command(const std::string& line) override {
        std::unique_lock lock(m_mutex);
        m_lines.push_back(line);
        m_changed.notify_all();
        // As the window does under a message box.
        m_changed.wait(lock, [&] { return m_holding_line != line; });
    }

    /// From here on the referee is held up when it says `line`, until release().
    void hold_at(const std::string& line) {
        const std::lock_guard lock(m_mutex);
        m_holding_line = line;
    }

    void release() {
        const std::lock_guard lock(m_mutex);
        m_holding_line.reset();
        m_changed.notify_all();
    }

    /// Waits until a line that has not been taken yet is accepted, and takes all lines up to it. Gives what
    /// was taken; without the line, everything there is after `patience`.
    std::vector<std::string> take_until(const Accepts& accepts) {
        const auto deadline = std::chrono::steady_clock::now() + patience;
        std::unique_lock lock(m_mutex);
        std::size_t seen = 0;
        while (true) {
            while (seen < m_lines.size()) {
                if (accepts(m_lines[seen++])) return take(seen);
            }
            if (m_changed.wait_until(lock, deadline) == std::cv_status::timeout) return take(m_lines.size());
        }
    }

    std::vector<std::string> take_until(const std::string& line) {
        return take_until([&line](const std::string& candidate) { return candidate == line; });
    }

    std::vector<std::string> take_all() {
        const std::lock_guard lock(m_mutex);
        return take(m_lines.size());
    }

private:
    std::vector<std::string> take(std::size_t count) {
        const auto end = m_lines.begin() + static_cast<std::ptrdiff_t>(count);
        std::vector<std::string> taken(m_lines.begin(), end);
        m_lines.erase(m_lines.begin(), end);
        return taken;
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<std::string> m_lines;           // guarded by m_mutex; not taken yet
    std::optional<std::string> m_holding_line;  // guarded by m_mutex
};

}  // namespace velmora::test
