#include "tools/match/tournament_games.h"

#include <chrono>
#include <random>
#include <stdexcept>

namespace velmora {

namespace {

/// What a clock may be overstepped before the referee of the window calls a game lost.
constexpr std::chrono::milliseconds referee_margin(500);

/// The level with a handicap's per cent taken off its times, as the referee does.
Level shortened(Level level, std::int32_t handicap) {
    if (handicap <= 0 || handicap >= 100 || level.base_ms() == Level::endless_ms) return level;
    const double part = 1.0 - handicap / 100.0;
    level.set_base(static_cast<std::int32_t>(level.base_ms() * part));
    level.set_inc(static_cast<std::int32_t>(level.inc_ms() * part));
    return level;
}

}  // namespace

TournamentGames::TournamentGames(const std::string& name) {
    try {
        m_tournament.load(name);
    } catch (const std::exception& error) {
        throw UsageError("-trn: " +
                         (m_tournament.load_fault().empty() ? error.what() : m_tournament.load_fault()));
    }
    if (m_tournament.participants_list().size() < 2) throw UsageError("-trn: " + name + " has no games");
}

void TournamentGames::prepare(MatchOptions& options) const {
    for (const auto& participant : m_tournament.participants_list()) {
        MatchEngineSetup setup;
        configure_installed(setup, participant.name);
        setup.level = shortened(m_tournament.level(), participant.handicap);
        setup.time_margin = m_tournament.ignore_time_loss() ? std::chrono::hours(24) : referee_margin;
        options.pool.engines.push_back(std::move(setup));
    }
    options.openings.file = m_tournament.opening_book();
    options.openings.random = m_tournament.random_order();
    // Two tournaments with one book are not to have the same openings.
    if (options.openings.seed == 0) options.openings.seed = std::random_device()();
    options.pgn.event = m_tournament.event();
    options.pgn.site = m_tournament.site();
}

std::optional<ScheduledGame> TournamentGames::next() {
    const std::lock_guard lock(m_mutex);
    const auto& games = m_tournament.games();
    while (m_next < games.size() && games[m_next].result != "*") ++m_next;
    if (m_next == games.size()) return {};
    const TournamentGame& game = games[m_next++];
    ScheduledGame scheduled;
    scheduled.number = static_cast<std::uint64_t>(game.number);
    scheduled.round = static_cast<std::uint64_t>(game.round);
    scheduled.white = static_cast<std::size_t>(game.white.id - 1);
    scheduled.black = static_cast<std::size_t>(game.black.id - 1);
    scheduled.opening = (scheduled.number - 1) / (m_tournament.both_colors() ? 2 : 1);
    scheduled.encounter = scheduled.opening;
    return scheduled;
}

void TournamentGames::set_result(std::uint64_t number, const std::string& result) {
    const std::lock_guard lock(m_mutex);
    m_early[number] = result;
    bool changed = false;
    for (auto open = m_tournament.next_game(); open.number != 0; open = m_tournament.next_game()) {
        const auto found = m_early.find(static_cast<std::uint64_t>(open.number));
        if (found == m_early.end()) break;
        m_tournament.set_result(found->second);
        m_early.erase(found);
        changed = true;
    }
    if (changed) m_tournament.save();
}

}  // namespace velmora
