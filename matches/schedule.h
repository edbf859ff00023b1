#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "matches/match_settings.h"

namespace velmora {

/// One game that is to be played.
struct ScheduledGame {
    std::uint64_t number = 0;          ///< from 1, in the whole schedule
    std::uint64_t encounter = 0;       ///< from 0: the games of a pairing in one round
    std::uint64_t round = 0;           ///< from 1
    std::size_t white = 0, black = 0;  ///< numbers of the engines, from 0
    std::uint64_t opening = 0;         ///< from 0, as the suite counts
};

/// All games of a match, each by its number: nothing is stored, so a schedule may have any length, and all
/// machines that share one agree without a word.
///
/// A shard has whole encounters, so that no two machines play games of one opening pair.
class Schedule {
public:
    /// REQUIRES: at least two engines, rounds, games and shards of at least 1.
    Schedule(const ScheduleSettings& settings, std::size_t engines);

    /// Games of the whole schedule.
    std::uint64_t size() const { return m_pairings * m_settings.rounds * m_settings.games; }
    /// REQUIRES: 1 <= number <= size().
    ScheduledGame game(std::uint64_t number) const;
    bool is_of_shard(const ScheduledGame& game) const;

private:
    std::pair<std::size_t, std::size_t> pairing(std::uint64_t index) const;

    const ScheduleSettings m_settings;
    const std::size_t m_engines;
    const std::uint64_t m_pairings;  // in a round
};

}  // namespace velmora
