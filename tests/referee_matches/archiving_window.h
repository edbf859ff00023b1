#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <string_view>

#include "tests/window/headless_window.h"

namespace velmora::test {

/// What the window makes of a referee's lines, without a display: its copy of the game, and the archive in
/// the working directory.
class ArchivingWindow {
public:
    void process(const std::string& line) {
        m_window.dispatcher.process(line);
        m_window.screen.calls.clear();
    }

    static constexpr const char* archive_name = "Velmora battles.pgn";

    /// The values of one tag of all archived games, each with a blank behind it.
    static std::string archived(std::string_view tag) {
        std::ifstream file(archive_name);
        const std::string head = "[" + std::string(tag) + " \"";
        std::string values;
        for (std::string line; std::getline(file, line);) {
            if (line.starts_with(head))
                values += line.substr(head.size(), line.find('"', head.size()) - head.size()) + ' ';
        }
        return values;
    }

    /// What an independent reader complains of in the archive; nothing where it isn't installed.
    static std::string complaints() {
        const std::string reader = "/usr/games/pgn-extract";
        if (!std::filesystem::exists(reader)) return {};
        const std::string command = reader + " -s -r '" + archive_name + "' 2>archive.judged";
        std::stringstream text;
        if (std::system(command.c_str()) != 0) text << "failed: ";
        text << std::ifstream("archive.judged").rdbuf();
        return std::regex_replace(text.str(), std::regex("Games: [0-9]+\r"), "");  // how far it has come
    }

private:
    HeadlessWindow m_window{Mode::tournament};  // in which a match has been started
};

}  // namespace velmora::test
