#include "window/flows/opened_file.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

namespace velmora {

OpenedFile kind_of_file(const std::string& path) {
    std::string extension = std::filesystem::path(path).extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (extension == ".pgn") return OpenedFile::game;
    if (extension == ".fen" || extension == ".epd") return OpenedFile::position;
    if (extension == ".bin") return OpenedFile::book;
    return OpenedFile::none;
}

}  // namespace velmora
