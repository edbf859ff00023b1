#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "chess/board/side.h"
#include "game/game.h"
#include "window/session/clock_view.h"
#include "window/session/dialogs.h"

namespace velmora {

/// How a game stood when it was left, beside its record.
struct LeftGame {
    std::optional<Side> engine;  ///< the side that an engine played; nothing for a game without one
    BySide<ClockReading> clocks;
    std::vector<std::uint32_t> way;  ///< from the start to the position: which of the children, move by move
    std::string level;               ///< the time control, as a text
    std::string players;             ///< "White - Black"; the record has no names before its end
};

/// Games that stand nowhere else, each in a file of its own in one directory: the last hundred.
///
/// A file is PGN, as the archive has it, behind one tag more that tells the rest. It is replaced whole each
/// time, by a rename and without forcing it to the disk: a program that is killed leaves the last state or
/// the one before, and nobody waits for a disk between two moves.
///
/// The names begin with the time, so that their order is that of the games, and hold the number of the
/// process, so that two programs don't write the same.
class EarlierGames {
public:
    static constexpr std::size_t most_kept = 100;

    /// @param directory  with a trailing slash; made when the first game is kept
    explicit EarlierGames(std::string directory) : m_directory(std::move(directory)) {}

    /// The game that is kept from here on is another one.
    void begin() { m_current.clear(); }
    /// Writes the present state of the game, in place of the one before. Gives the reason when it can't.
    std::optional<std::string> keep(const std::string& pgn, const LeftGame& left);
    /// The game stands elsewhere, or is none.
    void drop();
    /// Goes on with a game of the list: it is the one that is kept from here on.
    void take_up(const std::string& path) { m_current = path; }

    /// The latest game first; the one that is being kept isn't among them, nor is what can't be read.
    std::vector<EarlierGame> list() const;

    /// Reads a game of the list; nothing where it has gone or can't be read.
    static std::optional<std::pair<Game, LeftGame>> load(const std::string& path);

private:
    std::vector<std::string> paths() const;
    std::string new_path() const;

    const std::string m_directory;
    std::string m_current;  // empty while nothing of the present game has been written
};

}  // namespace velmora
