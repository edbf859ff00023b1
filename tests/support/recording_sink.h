#pragma once

#include <cstdint>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "channel/command_sink.h"

namespace velmora::test {

/// Keeps the lines that it is given, from whichever thread.
class RecordingSink : public CommandSink {
public:
    void put_command(const std::string& line) override {
        const std::lock_guard lock(m_mutex);
        m_lines.push_back(line);
        ++m_count;
    }
    std::vector<std::string> lines() const {
        const std::lock_guard lock(m_mutex);
        return m_lines;
    }
    /// All lines since the last call.
    std::vector<std::string> take() {
        const std::lock_guard lock(m_mutex);
        return std::exchange(m_lines, {});
    }

    /// How many lines it has been given in its life.
    std::uint64_t count() const {
        const std::lock_guard lock(m_mutex);
        return m_count;
    }

private:
    mutable std::mutex m_mutex;
    std::vector<std::string> m_lines;
    std::uint64_t m_count = 0;
};

}  // namespace velmora::test
