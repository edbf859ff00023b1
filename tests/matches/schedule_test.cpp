#include "matches/schedule.h"

#include <map>
#include <set>
#include <string>

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Kind = ScheduleSettings::Kind;

/// "AB1 BA1 ..." with the number of the opening.
std::string games_of(const ScheduleSettings& settings, std::size_t engines) {
    const Schedule schedule(settings, engines);
    std::string text;
    for (std::uint64_t number = 1; number <= schedule.size(); ++number) {
        const auto game = schedule.game(number);
        if (!schedule.is_of_shard(game)) continue;
        for (const auto engine : {game.white, game.black}) text += static_cast<char>('A' + engine);
        text += std::to_string(game.opening) + ' ';
    }
    return text;
}

TEST(Schedule, PairsEnginesAndOpenings) {
    struct Row {
        ScheduleSettings settings;
        std::size_t engines;
        std::string games;
    };
    const std::vector<Row> rows{
        {{Kind::round_robin, 2, 2, true, true, 0, 1}, 2, "AB0 BA0 AB1 BA1 "},
        {{Kind::round_robin, 2, 2, false, true, 0, 1}, 2, "AB0 BA1 AB2 BA3 "},
        {{Kind::round_robin, 3, 1, false, true, 0, 1}, 2, "AB0 BA1 AB2 "},
        {{Kind::round_robin, 2, 2, true, false, 0, 1}, 2, "AB0 AB0 AB1 AB1 "},
        {{Kind::round_robin, 1, 2, true, true, 0, 1}, 4, "AB0 BA0 AC1 CA1 AD2 DA2 BC3 CB3 BD4 DB4 CD5 DC5 "},
        {{Kind::gauntlet, 2, 1, true, true, 0, 1}, 3, "AB0 AC1 BA2 CA3 "},
        {{Kind::round_robin, 4, 2, true, true, 1, 3}, 2, "AB1 BA1 "},
    };
    for (const auto& row : rows) EXPECT_EQ(games_of(row.settings, row.engines), row.games);
}

TEST(Schedule, ShardsShareNoPairAndMissNone) {
    ScheduleSettings settings{Kind::round_robin, 50, 2, true, true, 0, 7};
    std::map<std::uint64_t, std::set<std::uint64_t>> shards_of_encounter;
    std::set<std::uint64_t> numbers;
    for (settings.shard = 0; settings.shard < settings.shards; ++settings.shard) {
        const Schedule schedule(settings, 3);
        for (std::uint64_t number = 1; number <= schedule.size(); ++number) {
            const auto game = schedule.game(number);
            if (!schedule.is_of_shard(game)) continue;
            shards_of_encounter[game.encounter].insert(settings.shard);
            EXPECT_TRUE(numbers.insert(number).second);
        }
    }
    EXPECT_EQ(numbers.size(), 300);
    for (const auto& [encounter, shards] : shards_of_encounter) EXPECT_EQ(shards.size(), 1) << encounter;
}

}  // namespace
}  // namespace velmora
