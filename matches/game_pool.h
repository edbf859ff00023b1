#pragma once

#include <array>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <thread>
#include <variant>
#include <vector>

#include "matches/finished_game.h"
#include "matches/match_engine.h"
#include "matches/match_settings.h"
#include "matches/opening_suite.h"

namespace velmora {

struct GameStarted {
    ScheduledGame scheduled;
    BySide<std::string> names;
};
/// An engine could not be started. Without recovery the match ends by it.
struct StartFailed {
    std::size_t engine = 0;
    std::string fault;
};
using PoolEvent = std::variant<GameStarted, FinishedGame, StartFailed>;

/// Plays the games of a schedule, some at once, each on a thread of its own with engines of its own that are
/// kept for the next game.
///
/// What happens comes out of one queue, in its order. A thread keeps the two engines that it played with
/// last, and ends those that the next game has no use for: a tournament of many engines would else keep as
/// many processes for each game that runs.
class GamePool {
public:
    struct Settings {
        std::vector<MatchEngineSetup> engines;
        AdjudicationSettings adjudication;
        unsigned concurrency = 1;
        bool chess960 = false;
        bool recover = false;
        bool logs = false;
        bool use_affinity = false;          ///< each thread and its engines stay on one core
        std::chrono::milliseconds wait{0};  ///< between two games of a thread
    };
    /// Gives the next game, nothing at the end; called by one thread at a time.
    using Source = std::function<std::optional<ScheduledGame>()>;

    /// Starts at once; `openings` must outlive the pool.
    GamePool(Settings settings, OpeningSuite& openings, Source next);
    /// As break_off(), and waits for the threads.
    ~GamePool();

    GamePool(const GamePool&) = delete;
    GamePool& operator=(const GamePool&) = delete;

    /// The next event. Threads wait between two games while many aren't taken, so that a disk that is slower
    /// than the engines loses no more by a kill than a few games. Nothing when all threads have ended and
    /// everything was told. Blocks.
    std::optional<PoolEvent> next_event();

    /// No further game is begun.
    void finish();
    /// The games that run are broken off as well. Any thread.
    void break_off();

private:
    class Worker;

    std::optional<ScheduledGame> take_game();
    void put(PoolEvent event);
    void run(unsigned number);

    const Settings m_settings;
    OpeningSuite& m_openings;
    std::stop_source m_leaving;

    std::mutex m_source_mutex;
    Source m_next;             // guarded by m_source_mutex
    bool m_finishing = false;  // guarded by m_source_mutex

    std::mutex m_mutex;
    std::condition_variable_any m_changed;
    std::deque<PoolEvent> m_events;  // this and what follows: guarded by m_mutex
    unsigned m_running = 0;

    std::vector<std::jthread> m_threads;
};

}  // namespace velmora
