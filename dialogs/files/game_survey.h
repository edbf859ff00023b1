#pragma once

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

#include "dialogs/files/entry_reader.h"

namespace velmora {

/// A game of a file that needs the second reader, or that the list of headers doesn't have.
struct FoundGame {
    FileEntry entry;           ///< a row of the list, should the game not stand there
    std::uint64_t size = 0;    ///< of its text in the file, in bytes
    bool is_repaired = false;  ///< all of it is read
    bool is_damaged = false;   ///< some of it can't be read
    std::vector<std::string>
        remarks;  ///< what and where, a sentence each; none behind the first ten thousand games
};

/// Looks through a file for such games, on a thread of its own.
///
/// Apart from the listing and behind it: headers alone are listed at the speed of the disk, while here every
/// byte of every game is looked at.
class GameSurvey {
public:
    explicit GameSurvey(std::string path);
    /// Stops at once, wherever in the file it is.
    ~GameSurvey() = default;
    GameSurvey(const GameSurvey&) = delete;  // the thread holds its address
    GameSurvey& operator=(const GameSurvey&) = delete;

    /// Moves what was found since the last call to the end of `games`. False once all has been handed over.
    bool take(std::vector<FoundGame>& games);

private:
    void run(const std::stop_token& leaving, const std::string& path);

    std::mutex m_mutex;
    std::vector<FoundGame> m_waiting;  // guarded by m_mutex
    bool m_finished = false;           // guarded by m_mutex
    std::jthread m_thread;             // last: it uses all of the above
};

}  // namespace velmora
