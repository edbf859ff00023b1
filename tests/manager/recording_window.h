#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>
#include <string>

#include "channel/command_sink.h"

namespace velmora::test {

/// Stands in for the window: keeps the lines of the referee until a test takes them.
class RecordingWindow : public CommandSink {
public:
    /// How long a test waits for a line before it fails.
    static constexpr std::chrono::seconds patience{30};

    void put_command(const std::string& line) override {
        std::unique_lock lock(m_mutex);
        m_lines.push_back(line);
        m_changed.notify_all();
        // As the window does under a message box.
        m_changed.wait(lock, [&] { return m_holding_line != line; });
    }

    void acknowledge(std::uint64_t taken) override { m_taken = taken; }

    /// How many lines of the window the referee says that it has taken.
    std::uint64_t taken() const { return m_taken; }

    /// The next line that has not been taken; none when there is no more within the patience.
    std::optional<std::string> take() {
        std::unique_lock lock(m_mutex);
        if (!m_changed.wait_for(lock, patience, [this] { return !m_lines.empty(); })) return std::nullopt;
        std::string line = m_lines.front();
        m_lines.pop_front();
        return line;
    }

    bool has_line() {
        const std::lock_guard lock(m_mutex);
        return !m_lines.empty();
    }

    /// From here on the referee is held up when it says `line`, until the call without one.
    void hold_at(std::optional<std::string> line) {
        const std::lock_guard lock(m_mutex);
        m_holding_line = std::move(line);
        m_changed.notify_all();
    }

private:
    std::atomic<std::uint64_t> m_taken = 0;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::string> m_lines;            // guarded by m_mutex; not taken yet
    std::optional<std::string> m_holding_line;  // guarded by m_mutex
};

}  // namespace velmora::test
