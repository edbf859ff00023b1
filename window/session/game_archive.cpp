#include "window/session/game_archive.h"

#include <stdexcept>

#include "base/atomic_file.h"
#include "game/torn_tail.h"

namespace velmora {

std::optional<std::string> GameArchive::append(const std::string& pgn) const {
    try {
        append_to_file_behind(
            m_path, [this] { return closing_of_torn_tail(m_path); }, pgn);
        return std::nullopt;
    } catch (const std::runtime_error& error) {
        return error.what();
    }
}

}  // namespace velmora
