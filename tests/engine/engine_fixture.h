#pragma once

#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "channel/command_sink.h"

namespace velmora {

/// Keeps the lines that a driver posts.
class RecordingSink : public CommandSink {
public:
    void put_command(const std::string& line) override;
    std::vector<std::string> lines() const;
    std::size_t size() const { return lines().size(); }

private:
    mutable std::mutex m_mutex;
    std::vector<std::string> m_lines;
};

/// A working directory of its own with engines in it; fails a test that leaves a child or a pipe behind.
class EngineTest : public testing::Test {
protected:
    EngineTest();
    ~EngineTest() override;

    void TearDown() override;

    /// Makes an engine program that follows the script (tests/support/scripted_engine.h); gives its path.
    std::string make_engine(const std::string& name, const std::string& script,
                            const std::string& suffix = ".engine") const;
    /// All that the engine of this name was sent, as it came in.
    std::string sent(const std::string& name) const;

    std::string read_file(const std::string& name) const;
    void write_file(const std::string& name, const std::string& text) const;
    const std::string& directory() const { return m_directory; }

    /// Ends all child processes, for tests of engines that do not go by themselves.
    static void kill_children();

    /// Waits until the condition holds, while the main context runs; false after a minute.
    static bool wait_until(const std::function<bool()>& condition);

private:
    std::string m_directory;  // with a trailing slash
    std::string m_old_directory;
    std::size_t m_pipes_before;
};

/// The lines of a text, leading blanks removed, empty lines left out.
std::vector<std::string> lines_of(const std::string& text);

/// Whether the line is the pattern, in which each ~ stands for the digits of a number.
bool matches(const std::string& pattern, const std::string& line);

/// The lines with each number taken from the pattern where that has a ~, so that whole texts can be compared.
std::vector<std::string> masked(std::vector<std::string> lines, const std::vector<std::string>& patterns);

}  // namespace velmora
