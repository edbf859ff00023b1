#include "views/board/data_directory.h"

#include <array>

#include "base/regular_file.h"

namespace velmora {

std::string data_directory() {
    static const std::array<std::string, 3> candidates{"", "/usr/local/games/", "/usr/games/"};
    return data_directory(candidates);
}

std::string data_directory(std::span<const std::string> candidates) {
    for (const std::string& candidate : candidates.first(candidates.size() - 1)) {
        if (RegularFile(candidate + image_directory + "wood_l.svg").is_open()) return candidate;
    }
    return candidates.back();
}

std::string image_path(const std::string& file) { return data_directory() + image_directory + file; }

}  // namespace velmora
