#pragma once

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/workplace.h"

namespace velmora {

/// A working directory of its own with engines in it; fails a test that leaves a child or a pipe behind.
class EngineTest : public testing::Test, public test::Workplace {
protected:
    EngineTest();

    void TearDown() override;

    /// Ends all child processes, for tests of engines that do not go by themselves.
    static void kill_children();

    /// Waits until the condition holds, while the main context runs; false after a minute.
    static bool wait_until(const std::function<bool()>& condition);

private:
    std::size_t m_pipes_before;
};

/// The lines of a text, leading blanks removed, empty lines left out.
std::vector<std::string> lines_of(const std::string& text);

/// Whether the line is the pattern, in which each ~ stands for the digits of a number.
bool matches(const std::string& pattern, const std::string& line);

/// The lines with each number taken from the pattern where that has a ~, so that whole texts can be compared.
std::vector<std::string> masked(std::vector<std::string> lines, const std::vector<std::string>& patterns);

}  // namespace velmora
