#include "matches/game_pool.h"

#include <sched.h>
#include <utility>

namespace velmora {

/// One thread's engines and its games.
class GamePool::Worker {
public:
    Worker(GamePool& pool, unsigned number) : m_pool(pool), m_number(number) {}

    void run() {
        while (const auto scheduled = m_pool.take_game()) {
            if (!play(*scheduled)) return;
            pause();
        }
    }

private:
    /// False where the match can't go on.
    bool play(const ScheduledGame& scheduled) {
        std::erase_if(m_engines, [&](const auto& entry) {
            return entry.first != scheduled.white && entry.first != scheduled.black;
        });
        BySide<MatchEngine*> engines{engine(scheduled.white), engine(scheduled.black)};
        if (engines.white == nullptr || engines.black == nullptr) return false;
        const BySide<std::string> names{engines.white->name(), engines.black->name()};
        m_pool.put(GameStarted{scheduled, names});
        const auto& settings = m_pool.m_settings;
        EngineGame game(engines, settings.adjudication, settings.chess960, m_pool.m_leaving.get_token());
        FinishedGame finished{scheduled, names, game.play(m_pool.m_openings.position(scheduled.opening))};
        const auto termination = finished.game.termination;
        m_pool.put(std::move(finished));
        const bool lost = termination == Termination::abandoned || termination == Termination::stalled;
        if (lost && !settings.recover) m_pool.finish();
        return true;
    }

    /// An engine that is ready for a game; null when it can't be started.
    MatchEngine* engine(std::size_t index) {
        auto& place = m_engines[index];
        if (!place) {
            const auto number =
                static_cast<std::uint32_t>(m_number * m_pool.m_settings.engines.size() + index + 1);
            place = std::make_unique<MatchEngine>(m_pool.m_settings.engines[index], number,
                                                  m_pool.m_settings.logs, m_pool.m_leaving.get_token());
        } else if (!place->wants_restart()) {
            return place.get();
        }
        if (place->start()) return place.get();
        if (!m_pool.m_leaving.stop_requested()) m_pool.put(StartFailed{index, place->fault()});
        m_pool.finish();
        return nullptr;
    }

    void pause() const {
        if (m_pool.m_settings.wait.count() == 0) return;
        std::mutex mutex;
        std::unique_lock lock(mutex);
        std::condition_variable_any().wait_for(lock, m_pool.m_leaving.get_token(), m_pool.m_settings.wait,
                                               [] { return false; });
    }

    GamePool& m_pool;
    const unsigned m_number;
    std::map<std::size_t, std::unique_ptr<MatchEngine>> m_engines;  // by their number in the match
};

GamePool::GamePool(Settings settings, OpeningSuite& openings, Source next)
    : m_settings(std::move(settings)),
      m_openings(openings),
      m_next(std::move(next)),
      m_running(m_settings.concurrency) {
    for (unsigned i = 0; i < m_settings.concurrency; ++i) m_threads.emplace_back([this, i] { run(i); });
}

GamePool::~GamePool() { break_off(); }

void GamePool::run(unsigned number) {
    if (m_settings.use_affinity) {
        // What the thread starts inherits its core.
        cpu_set_t core;
        CPU_ZERO(&core);
        CPU_SET(number % std::max(1U, std::thread::hardware_concurrency()), &core);
        sched_setaffinity(0, sizeof core, &core);
    }
    Worker(*this, number).run();
    const std::lock_guard lock(m_mutex);
    --m_running;
    m_changed.notify_all();
}

std::optional<ScheduledGame> GamePool::take_game() {
    const std::lock_guard lock(m_source_mutex);
    if (m_finishing) return {};
    return m_next();
}

void GamePool::put(PoolEvent event) {
    const std::size_t most_waiting = std::size_t{4} * m_settings.concurrency;
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, m_leaving.get_token(), [&] { return m_events.size() < most_waiting; });
    m_events.push_back(std::move(event));
    m_changed.notify_all();
}

std::optional<PoolEvent> GamePool::next_event() {
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return !m_events.empty() || m_running == 0; });
    if (m_events.empty()) return {};
    PoolEvent event = std::move(m_events.front());
    m_events.pop_front();
    m_changed.notify_all();
    return event;
}

void GamePool::finish() {
    const std::lock_guard lock(m_source_mutex);
    m_finishing = true;
}

void GamePool::break_off() {
    finish();
    m_leaving.request_stop();
}

}  // namespace velmora
