#pragma once

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sched.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace velmora::test {

/// A running velmora-console whose input is a text, and whose lines a test reads as they come.
class ConsoleProcess {
public:
    explicit ConsoleProcess(const std::string& input) {
        std::ofstream("console.input") << input;
        // The shell tells its process number and becomes the console.
        m_lines = ::popen("echo $$; exec " VELMORA_CONSOLE " <console.input 2>console.errors", "r");
        m_pid = std::stoi(next_line().value());
    }

    ~ConsoleProcess() {
        if (m_lines != nullptr) {
            kill();
            finish();
        }
    }

    ConsoleProcess(const ConsoleProcess&) = delete;
    ConsoleProcess& operator=(const ConsoleProcess&) = delete;

    /// Nothing at the end.
    std::optional<std::string> next_line() {
        char buffer[65536];
        if (std::fgets(buffer, sizeof buffer, m_lines) == nullptr) return std::nullopt;
        std::string line = buffer;
        if (line.ends_with('\n')) line.pop_back();
        return line;
    }

    std::vector<std::string> remaining_lines() {
        std::vector<std::string> lines;
        while (auto line = next_line()) lines.push_back(*line);
        return lines;
    }

    /// Waits for the end and gives the status.
    int finish() {
        const int status = ::pclose(m_lines);
        m_lines = nullptr;
        return WEXITSTATUS(status);
    }

    void kill() const { ::kill(m_pid, SIGKILL); }

    /// What it holds of the system's.
    struct Belongings {
        std::size_t descriptors = 0;
        std::size_t threads = 0;
        std::size_t children = 0;
        std::size_t bound_children = 0;  // that may not run on every core that the test may run on
        long resident_kb = 0;
    };

    Belongings belongings() const {
        namespace fs = std::filesystem;
        const fs::path process = "/proc/" + std::to_string(m_pid);
        const auto entries = [](const fs::path& directory) {
            return static_cast<std::size_t>(
                std::distance(fs::directory_iterator(directory), fs::directory_iterator()));
        };
        Belongings now{.descriptors = entries(process / "fd"), .threads = entries(process / "task")};
        std::ifstream status(process / "status");
        for (std::string line; std::getline(status, line);) {
            if (line.starts_with("VmRSS:")) now.resident_kb = std::stol(line.substr(6));
        }
        for (const auto& entry : fs::directory_iterator("/proc")) {
            std::string stat;
            std::getline(std::ifstream(entry.path() / "stat"), stat);
            // "number (name) state parent ..."
            const auto parent = stat.rfind(") ");
            if (parent == std::string::npos || std::atoi(stat.c_str() + parent + 4) != m_pid) continue;
            ++now.children;
            if (!may_run_everywhere(std::atoi(stat.c_str()))) ++now.bound_children;
        }
        return now;
    }

private:
    static bool may_run_everywhere(pid_t process) {
        cpu_set_t all;
        cpu_set_t cores;
        if (sched_getaffinity(0, sizeof all, &all) != 0) return false;
        // A process that has just ended has no cores, and is no engine of the game.
        return sched_getaffinity(process, sizeof cores, &cores) != 0 || CPU_EQUAL(&all, &cores) != 0;
    }

    std::FILE* m_lines = nullptr;
    pid_t m_pid = 0;
};

}  // namespace velmora::test
