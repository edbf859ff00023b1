#pragma once

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <glib.h>

#include "tests/support/scratch_directory.h"

namespace velmora::test {

/// A working directory of its own, in which a referee finds engines, tournaments, books and logs. Outside of
/// /home it is the user's directory as well.
class Workplace {
public:
    Workplace() : m_before(std::filesystem::current_path()) {
        std::signal(SIGPIPE, SIG_IGN);  // as every program does that drives engines
        std::filesystem::current_path(m_files.path(""));
        std::filesystem::create_directory("tournaments");
    }

    ~Workplace() {
        while (g_main_context_iteration(nullptr, FALSE) != FALSE)
            continue;  // reaps the engines that are gone
        std::filesystem::current_path(m_before);
        std::error_code still_written_to;  // by an engine that is on its way out
        do {
            std::filesystem::remove_all(m_files.path(""), still_written_to);
        } while (still_written_to);
    }

    Workplace(const Workplace&) = delete;
    Workplace& operator=(const Workplace&) = delete;

    /// Makes a scripted engine (tests/support/scripted_engine.h), and gives the path of its program.
    std::string add_engine(const std::string& name, const std::string& script,
                           const std::string& suffix = ".engine") const {
        write(name + ".script", script);
        std::string program = path(name + suffix);
        if (!std::filesystem::exists(program)) std::filesystem::create_symlink(SCRIPTED_ENGINE, program);
        return program;
    }

    /// The same, and puts it into the list of installed engines; script lines that begin with "cfg " are rows
    /// of its entry.
    void install_engine(const std::string& name, const std::string& script) const {
        std::string play;
        std::string entry = "\nname " + name + "\nfilename " + path(name + ".engine") + "\nprotocol uci\n";
        std::istringstream lines(script);
        for (std::string line; std::getline(lines, line);) {
            (line.starts_with("cfg ") ? entry.append(line.substr(4)) : play.append(line)) += '\n';
        }
        add_engine(name, play);
        std::ofstream("engines.cfg", std::ios::app) << entry;
    }

    void write(const std::string& name, const std::string& text) const { m_files.write(name, text); }
    std::string read(const std::string& name) const { return m_files.content(name); }

    /// What an engine has been sent.
    std::string sent_to(const std::string& name) const { return read(name + ".sent"); }

    /// The processes of an engine.
    std::vector<int> processes_of(const std::string& name) const {
        const std::string program = path(name + ".engine");
        std::vector<int> found;
        for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
            std::string command;
            std::getline(std::ifstream(entry.path() / "cmdline"), command, '\0');
            if (command == program) found.push_back(std::stoi(entry.path().filename()));
        }
        return found;
    }

    /// Ends an engine's process from outside.
    void kill_engine(const std::string& name) const {
        for (const int process : processes_of(name)) ::kill(process, SIGKILL);
    }

    /// Waits until `holds`, for half a minute at most; what then doesn't hold is seen by the test.
    static void wait_for(const std::function<bool()>& holds) {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
        while (!holds() && std::chrono::steady_clock::now() < deadline) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }

    std::string path(const std::string& name) const { return m_files.path(name); }

private:
    const std::filesystem::path m_before;
    const ScratchDirectory m_files;
};

}  // namespace velmora::test
