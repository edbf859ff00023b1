#include "tests/engine/engine_fixture.h"

#include <cctype>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include <glib.h>

#include "base/text.h"

namespace fs = std::filesystem;

namespace velmora {
namespace {

std::size_t open_pipes() {
    std::size_t count = 0;
    for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
        std::error_code error;
        if (fs::read_symlink(entry, error).string().starts_with("pipe:")) ++count;
    }
    return count;
}

std::vector<pid_t> children() {
    std::vector<pid_t> pids;
    for (const auto& task : fs::directory_iterator("/proc/self/task")) {
        std::ifstream file(task.path() / "children");
        for (pid_t pid = 0; file >> pid;) pids.push_back(pid);
    }
    return pids;
}

}  // namespace

EngineTest::EngineTest() : m_pipes_before(open_pipes()) {}

void EngineTest::TearDown() {
    EXPECT_TRUE(wait_until([] { return children().empty(); })) << "a process is left behind";
    kill_children();
    EXPECT_EQ(open_pipes(), m_pipes_before) << "a descriptor is left open";
}

void EngineTest::kill_children() {
    for (const pid_t pid : children()) ::kill(pid, SIGKILL);
}

bool EngineTest::wait_until(const std::function<bool()>& condition) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        while (g_main_context_iteration(nullptr, FALSE) != FALSE) continue;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        if (const auto trimmed = text::trim_leading_blanks(line); !trimmed.empty())
            lines.emplace_back(trimmed);
    }
    return lines;
}

bool matches(const std::string& pattern, const std::string& line) {
    std::size_t at = 0;
    for (const char c : pattern) {
        if (c == '~') {
            if (at == line.size() || std::isdigit(static_cast<unsigned char>(line[at])) == 0) return false;
            while (at < line.size() && std::isdigit(static_cast<unsigned char>(line[at])) != 0) ++at;
        } else if (at == line.size() || line[at++] != c) {
            return false;
        }
    }
    return at == line.size();
}

std::vector<std::string> masked(std::vector<std::string> lines, const std::vector<std::string>& patterns) {
    for (std::size_t i = 0; i < lines.size() && i < patterns.size(); ++i) {
        if (matches(patterns[i], lines[i])) lines[i] = patterns[i];
    }
    return lines;
}

}  // namespace velmora
