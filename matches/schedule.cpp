#include "matches/schedule.h"

#include <tuple>
#include <utility>

namespace velmora {

namespace {

std::uint64_t pairings_of(ScheduleSettings::Kind kind, std::uint64_t engines) {
    return kind == ScheduleSettings::Kind::gauntlet ? engines - 1 : engines * (engines - 1) / 2;
}

}  // namespace

Schedule::Schedule(const ScheduleSettings& settings, std::size_t engines)
    : m_settings(settings), m_engines(engines), m_pairings(pairings_of(settings.kind, engines)) {}

/// The pairs in the order of their numbers: 0-1, 0-2, ..., 1-2, ...
std::pair<std::size_t, std::size_t> Schedule::pairing(std::uint64_t index) const {
    if (m_settings.kind == ScheduleSettings::Kind::gauntlet) return {0, index + 1};
    std::size_t first = 0;
    while (index >= m_engines - 1 - first) index -= m_engines - 1 - first++;
    return {first, first + 1 + index};
}

ScheduledGame Schedule::game(std::uint64_t number) const {
    ScheduledGame game;
    const std::uint64_t index = number - 1;
    const std::uint64_t in_encounter = index % m_settings.games;
    game.number = number;
    game.encounter = index / m_settings.games;
    game.round = game.encounter / m_pairings + 1;
    game.opening = m_settings.repeat ? game.encounter : index;
    std::tie(game.white, game.black) = pairing(game.encounter % m_pairings);
    if (m_settings.swap && in_encounter % 2 == 1) std::swap(game.white, game.black);
    // Without pairs inside a round, colours change from round to round.
    if (m_settings.swap && m_settings.games % 2 == 1 && game.round % 2 == 0) {
        std::swap(game.white, game.black);
    }
    return game;
}

bool Schedule::is_of_shard(const ScheduledGame& game) const {
    return game.encounter % m_settings.shards == m_settings.shard;
}

}  // namespace velmora
