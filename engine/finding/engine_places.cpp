#include "engine/finding/engine_places.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <set>
#include <sstream>
#include <unistd.h>

namespace velmora {

namespace {

namespace fs = std::filesystem;

constexpr std::array<const char*, 17> known_names = {
    "stockfish", "toga2",    "fairymax", "phalanx", "gnuchess", "crafty",    "fruit", "glaurung", "hoichess",
    "sjeng",     "ethereal", "dreamer",  "arasan",  "lc0",      "rubichess", "igel",  "faile"};

bool is_program(const fs::path& path) {
    std::error_code fault;
    return fs::is_regular_file(path, fault) && ::access(path.c_str(), X_OK) == 0;
}

}  // namespace

std::vector<std::string> known_engine_programs(const std::string& search_path) {
    std::vector<fs::path> folders;
    std::istringstream rest(search_path);
    for (std::string folder; std::getline(rest, folder, ':');) {
        // What lies in the working directory by chance isn't installed.
        if (folder.starts_with('/')) folders.emplace_back(folder);
    }
    for (const char* folder : {"/usr/games", "/usr/local/games"}) folders.emplace_back(folder);
    std::vector<std::string> found;
    std::set<fs::path> seen;
    const auto take = [&](const fs::path& path) {
        if (!is_program(path)) return;
        std::error_code fault;
        const auto real = fs::canonical(path, fault);
        if (!fault && seen.insert(real).second) found.push_back(path.string());
    };
    for (const char* name : known_names) {
        for (const auto& folder : folders) take(folder / name);
        take(fs::path("/usr/lib") / name / name);
    }
    return found;
}

std::vector<std::string> programs_of_folder(const std::string& folder) {
    std::vector<std::string> found;
    std::error_code unreadable;
    for (const auto& entry : fs::directory_iterator(folder, unreadable)) {
        if (is_program(entry.path())) found.push_back(entry.path().string());
    }
    std::ranges::sort(found);
    return found;
}

}  // namespace velmora
