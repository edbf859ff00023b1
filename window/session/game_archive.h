#pragma once

#include <optional>
#include <string>

namespace velmora {

/// A PGN file that only ever grows: the running archive of finished games, or a file that the person saves
/// to.
///
/// Games are appended because an archive may be large, and because several programs may share it: what
/// stands in it is never written again.
class GameArchive {
public:
    explicit GameArchive(std::string path) : m_path(std::move(path)) {}

    /// Appends the text of one game, and ahead of it what closes a game that was torn when its writer was
    /// killed; nothing of the file is taken away. Gives the file and the reason when it could not be written;
    /// the file is then as it was.
    std::optional<std::string> append(const std::string& pgn) const;

    const std::string& path() const { return m_path; }

private:
    std::string m_path;
};

}  // namespace velmora
