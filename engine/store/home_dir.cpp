#include "engine/store/home_dir.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "base/text.h"

namespace velmora {

namespace {

/// Makes the directory unless something of that name is there already.
void make_directory(const std::string& path, const char* failure) {
    std::error_code error;
    const auto type = std::filesystem::status(path, error).type();
    if (type != std::filesystem::file_type::not_found && type != std::filesystem::file_type::none) return;
    if (!std::filesystem::create_directory(path, error)) throw std::runtime_error(failure);
}

}  // namespace

std::string HomeDir::path_for(std::string_view working_directory) {
    std::string parts(working_directory);
    std::replace(parts.begin(), parts.end(), '/', ' ');
    text::WordReader reader(parts);
    if (reader.word() != "home") return "./";
    return "/home/" + std::string(reader.word()) + "/.velmorachess/";
}

HomeDir::HomeDir() {
    std::error_code error;
    m_path = path_for(std::filesystem::current_path(error).string());
    make_directory(m_path, "HomeDir() constructor failed");
    make_directory(tournaments_path(), "HomeDir/tournaments constructor failed");
}

}  // namespace velmora
