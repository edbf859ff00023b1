#include "tools/match/match_run.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <variant>

#include "matches/game_pool.h"
#include "matches/opening_suite.h"
#include "matches/schedule.h"
#include "tools/match/match_events.h"
#include "tools/match/signal_watch.h"
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

/// Plays what `source` gives until there is no more.
int play_games(const MatchOptions& options, MatchState& state, std::uint64_t total, GamePool::Source source,
               MatchEvents::Store store) {
    OpeningSuite openings(options.openings);
    GamePool pool(options.pool, openings, std::move(source));
    SignalWatch signals(pool);
    MatchEvents events(options, state, pool, total, std::move(store));
    while (auto event = pool.next_event()) std::visit(events, *event);
    const int status = events.end();
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
