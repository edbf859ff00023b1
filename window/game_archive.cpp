#include "window/game_archive.h"

#include <cerrno>
#include <cstring>
#include <fstream>

namespace velmora {

std::optional<std::string> GameArchive::append(const std::string& pgn) const {
    errno = 0;
    std::ofstream file(m_path, std::ios::app);
    file << pgn;
    file.close();
    if (file) return std::nullopt;
    return m_path + ": " + (errno != 0 ? std::strerror(errno) : "can't be written");
}

}  // namespace velmora
