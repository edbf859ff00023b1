#pragma once

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <glib.h>

namespace velmora::test {

/// A working directory of its own, in which a referee finds engines, tournaments, books and logs. Outside of
/// /home it is the user's directory as well.
class Workplace {
public:
    Workplace() : m_before(std::filesystem::current_path()) {
        std::signal(SIGPIPE, SIG_IGN);  // as every program does that drives engines
        std::string pattern = (std::filesystem::temp_directory_path() / "velmora-manager-XXXXXX").string();
        m_directory = ::mkdtemp(pattern.data());
        std::filesystem::current_path(m_directory);
        std::filesystem::create_directory("tournaments");
    }

    ~Workplace() {
        while (g_main_context_iteration(nullptr, FALSE) != FALSE)
            continue;  // reaps the engines that are gone
        std::filesystem::current_path(m_before);
        std::filesystem::remove_all(m_directory);
    }

    Workplace(const Workplace&) = delete;
    Workplace& operator=(const Workplace&) = delete;

    /// Makes a scripted engine, and gives the path of its program.
    std::string add_engine(const std::string& name, const std::string& script) const {
        write(name + ".script", script);
        const std::string program = path(name + ".engine");
        const auto original =
            std::filesystem::path(std::getenv("VELMORA_BINARY_DIR")) / "tests/support/scripted_engine";
        if (!std::filesystem::exists(program)) std::filesystem::create_symlink(original, program);
        return program;
    }

    /// The same, and puts it into the list of installed engines; `rows` are further rows of its entry.
    void install_engine(const std::string& name, const std::string& script,
                        const std::string& rows = "") const {
        const auto program = add_engine(name, script);
        std::ofstream("engines.cfg", std::ios::app)
            << "\nname " << name << "\nfilename " << program << "\nprotocol uci\n"
            << rows;
    }

    void write(const std::string& name, const std::string& text) const { std::ofstream(name) << text; }

    static std::string read(const std::string& name) {
        std::ifstream file(name);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// What an engine has been sent.
    std::string sent_to(const std::string& name) const { return read(name + ".sent"); }

    std::string path(const std::string& name) const { return (m_directory / name).string(); }

private:
    std::filesystem::path m_before;
    std::filesystem::path m_directory;
};

}  // namespace velmora::test
