#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// A game that counts.
struct StateGame {
    std::uint64_t number = 0;     ///< in the schedule, from 1
    std::uint64_t encounter = 0;  ///< games that share one are a pair
    std::size_t white = 0, black = 0;
    std::string result;  ///< "1-0", "0-1" or "1/2-1/2"
};

/// What a match needs to go on after any end: its command line and the games that were played, as a text file
/// to which one line is added a game.
///
///     velmora-match 1
///     word -engine
///     word cmd=stockfish
///     game 1 0 0 1 1-0
///
/// A line is forced to the disk before the next one. The end of the file that a kill has torn off is left out
/// when it is read and cut off before it is written on; the game then counts as not played. A game that
/// stands twice, when two processes were at it, counts once.
class MatchState {
public:
    MatchState() = default;  ///< keeps nothing
    ~MatchState();
    MatchState(const MatchState&) = delete;
    MatchState& operator=(const MatchState&) = delete;

    /// Begins a file. Throws std::runtime_error with path and reason, also when there is one.
    void create(const std::string& path, const std::vector<std::string>& words);
    /// Reads a file to go on with it. Throws std::runtime_error.
    void resume(const std::string& path);
    /// Reads a file alone.
    void read(const std::string& path);

    /// False when it is not on the disk; it is tried again with the next one.
    bool add(const StateGame& game);

    const std::vector<std::string>& words() const { return m_words; }
    const std::vector<StateGame>& games() const { return m_games; }

private:
    void read_line(std::string_view line);

    int m_fd = -1;
    std::size_t m_length = 0;  // bytes of whole lines in the file
    std::string m_waiting;     // lines that are not on the disk
    std::vector<std::string> m_words;
    std::vector<StateGame> m_games;
    std::vector<bool> m_played;  // by number
};

}  // namespace velmora
