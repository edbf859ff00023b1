#include "tools/match/match_run.h"

#include <atomic>
#include <csignal>
#include <functional>
#include <iostream>
#include <map>
#include <set>
#include <thread>
#include <unistd.h>

#include "base/atomic_file.h"
#include "matches/game_pool.h"
#include "matches/match_pgn.h"
#include "matches/opening_suite.h"
#include "matches/schedule.h"
#include "tools/match/live_view.h"
#include "tools/match/reporter.h"
#include "tools/match/tournament_games.h"

namespace velmora {

namespace {

/// Games of the schedule that are still to be played, by their number.
class OpenGames {
public:
    OpenGames(const Schedule& schedule, const MatchState& state) : m_schedule(schedule) {
        for (const auto& game : state.games()) m_played.insert(game.number);
    }

    std::optional<ScheduledGame> next() {
        while (++m_last <= m_schedule.size()) {
            const auto game = m_schedule.game(m_last);
            if (m_schedule.is_of_shard(game) && !m_played.contains(m_last)) return game;
        }
        return {};
    }

private:
    const Schedule& m_schedule;
    std::set<std::uint64_t> m_played;
    std::uint64_t m_last = 0;
};

/// Waits for the two signals on a thread of its own, where anything may be called.
class SignalWatch {
public:
    explicit SignalWatch(GamePool& pool) : m_thread([this, &pool] { watch(pool); }) {}
    ~SignalWatch() {
        m_ending = true;
        pthread_kill(m_thread.native_handle(), SIGUSR1);
        m_thread.join();
    }
    SignalWatch(const SignalWatch&) = delete;
    SignalWatch& operator=(const SignalWatch&) = delete;

    bool was_broken_off() const { return m_count > 0; }

private:
    void watch(GamePool& pool) {
        sigset_t signals;
        sigemptyset(&signals);
        sigaddset(&signals, SIGINT);
        sigaddset(&signals, SIGTERM);
        sigaddset(&signals, SIGUSR1);  // the owner is done
        for (int caught = 0; sigwait(&signals, &caught) == 0;) {
            if (m_ending) return;
            if (caught == SIGUSR1) continue;
            if (++m_count > 1) _exit(128 + caught);  // the engines die with the threads that started them
            pool.break_off();
        }
    }

    std::atomic<bool> m_ending = false;
    std::atomic<int> m_count = 0;
    std::thread m_thread;
};

/// How often each engine failed, by what it did.
class FaultTable {
public:
    void add(const std::string& name, Termination termination) {
        const char* word = termination == Termination::time_forfeit   ? "lost on time"
                           : termination == Termination::illegal_move ? "illegal move"
                           : termination == Termination::abandoned    ? "disconnected"
                           : termination == Termination::stalled      ? "stalled"
                                                                      : nullptr;
        if (word != nullptr) ++m_counts[{name, word}];
    }
    void print() const {
        for (const auto& [fault, count] : m_counts) {
            std::cerr << "Faults of " << fault.first << ": " << fault.second << ' ' << count << '\n';
        }
    }

private:
    std::map<std::pair<std::string, std::string>, std::uint64_t> m_counts;
};

/// What is done with each event of the pool.
class MatchRun {
public:
    /// Stores a result where it has to stand besides the state; may throw std::runtime_error.
    using Store = std::function<void(std::uint64_t number, const std::string& result)>;

    MatchRun(const MatchOptions& options, MatchState& state, GamePool& pool, std::uint64_t total, Store store)
        : m_options(options),
          m_state(state),
          m_pool(pool),
          m_store(std::move(store)),
          m_pgn(options.pgn, options.pool.engines),
          m_live(::isatty(STDOUT_FILENO) == 1 && !options.json),
          m_reporter(std::cout, options, total,
                     m_live ? Reporter::Meanwhile::nothing : Reporter::Meanwhile::lines),
          m_view(std::cout, options, total, state.games().size()) {
        for (const auto& game : state.games()) m_games.add(game);
        if (sprt_decision(options, m_games) != 0) pool.finish();
    }

    void operator()(const GameStarted& event) {
        m_reporter.started(event.scheduled, event.names);
        m_view.started(event.scheduled, event.names);
        draw();
    }

    void operator()(const StartFailed& event) {
        m_failed = true;
        std::cerr << "velmora-match: " << m_reporter.name(event.engine) << ": " << event.fault << '\n';
    }

    void operator()(const FinishedGame& event) {
        const auto& scheduled = event.scheduled;
        if (event.game.outcome) {
            const StateGame game{scheduled.number, scheduled.encounter, scheduled.white, scheduled.black,
                                 event.result()};
            m_games.add(game);
            // The record first: a kill between the two leaves a game in it that is played again, rather than
            // one that counts and has no record.
            warn(m_pgn.add(event), "the record", m_pgn.fault());
            warn(m_state.add(game), "the state", "it can't be written");
            m_faults.add(event.names[event.game.at_fault], event.game.termination);
            store(game);
            add_end_position(event);
        }
        m_reporter.finished(event, m_games);
        m_view.finished(event.scheduled, event.names.white + " - " + event.names.black + "  " +
                                             event.result() + " {" + event.reason() + "}");
        draw();
        if (sprt_decision(m_options, m_games) != 0) m_pool.finish();
    }

    int end() {
        m_view.clear();
        warn(m_pgn.write_rest(), "the record", m_pgn.fault());
        for (const auto number : m_pgn.unsaved()) {
            std::cerr << "velmora-match: game " << number << " is not in the record\n";
        }
        m_reporter.ended(m_games);
        m_faults.print();
        return m_failed || !m_pgn.unsaved().empty() ? 1 : 0;
    }

private:
    void draw() {
        if (m_live) m_view.draw(m_games, m_reporter.names());
    }

    static void warn(bool saved, const char* what, const std::string& why) {
        if (!saved) std::cerr << "velmora-match: " << what << " waits for room: " << why << '\n';
    }

    void store(const StateGame& game) {
        try {
            m_store(game.number, game.result);
        } catch (const std::runtime_error& error) {
            std::cerr << "velmora-match: " << error.what() << '\n';
        }
    }

    void add_end_position(const FinishedGame& event) {
        if (m_options.end_positions.empty()) return;
        try {
            append_to_file(m_options.end_positions, event.game.end.epd() + '\n');
        } catch (const std::runtime_error& error) {
            std::cerr << "velmora-match: " << error.what() << '\n';
        }
    }

    const MatchOptions& m_options;
    MatchState& m_state;
    GamePool& m_pool;
    const Store m_store;
    MatchPgn m_pgn;
    const bool m_live;
    Reporter m_reporter;
    LiveView m_view;
    FaultTable m_faults;
    MatchTally m_games;
    bool m_failed = false;
};

/// Plays what `source` gives until there is no more.
int play_games(const MatchOptions& options, MatchState& state, std::uint64_t total, GamePool::Source source,
               MatchRun::Store store) {
    OpeningSuite openings(options.openings);
    GamePool pool(options.pool, openings, std::move(source));
    SignalWatch signals(pool);
    MatchRun run(options, state, pool, total, std::move(store));
    while (auto event = pool.next_event()) std::visit(run, *event);
    const int status = run.end();
    return signals.was_broken_off() ? 130 : status;
}

}  // namespace

int run_match(MatchOptions options, MatchState& state) {
    if (!options.tournament.empty()) {
        TournamentGames games(options.tournament);
        games.prepare(options);
        return play_games(
            options, state, games.size(), [&games] { return games.next(); },
            [&games](std::uint64_t number, const std::string& result) { games.set_result(number, result); });
    }
    const Schedule schedule(options.schedule, options.pool.engines.size());
    OpenGames open(schedule, state);
    return play_games(
        options, state, schedule.size(), [&open] { return open.next(); }, [](auto&&...) {});
}

}  // namespace velmora
