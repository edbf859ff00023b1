// Positions from the records of games to the sorted file and back.

#include <cstring>
#include <fstream>
#include <map>
#include <random>
#include <set>

#include <gtest/gtest.h>

#include "collection/position_index.h"
#include "collection/position_sorter.h"
#include "tests/collection/collection_fixture.h"

namespace velmora {
namespace {

/// Games that come to a few positions often and to many once, some of them twice.
struct Records {
    Records() {
        for (std::uint32_t game = 0; game < 3000; ++game) {
            auto& columns = games.emplace_back();
            columns.result = static_cast<GameResult>(game % 4);
            columns.white_elo = static_cast<std::uint16_t>(game % 3 == 0 ? 0 : 2000 + game % 500);
            columns.date = (1990 + game % 30) * 10000;
            for (int ply = 0; ply < 40; ++ply) {
                // Some keys differ in their first or their last bits alone.
                const std::uint64_t key = ply == 0   ? 7U << 22
                                          : ply == 1 ? ~std::uint64_t{0} - (game % 2 << 22)
                                          : ply < 10 ? (random() % 50) << 40
                                                     : random() << 1;
                add(key, game, static_cast<std::uint16_t>(random() % 3));
                if (ply == 3) add(key, game, 1);
            }
        }
    }

    void add(std::uint64_t key, std::uint32_t game, std::uint16_t move) {
        records.push_back({key, game, move});
        expected[key][move].insert(game);
    }

    std::mt19937_64 random{5};
    std::vector<GameColumns> games;
    std::vector<PositionRecord> records;
    std::map<std::uint64_t, std::map<std::uint16_t, std::set<std::uint32_t>>> expected;
};

void write(const Records& records, const std::string& path, const std::string& scratch,
           std::uint64_t expected_records) {
    PositionSorter sorter(scratch, expected_records);
    const std::span all(records.records);
    for (std::size_t at = 0; at < all.size(); at += 1000)
        sorter.add(all.subspan(at, std::min<std::size_t>(1000, all.size() - at)), 0);
    std::uint64_t last = 0;
    ASSERT_TRUE(sorter.write(path, records.games, 0, 3, [&](std::uint64_t done) { last = done; }, {}));
    EXPECT_EQ(last, records.records.size());
}

TEST(PositionIndex, AnswersAsCountingDoes) {
    const Records records;
    const ScratchDirectory scratch;
    // One heap and many give the same file but for its number of stretches.
    for (const std::uint64_t expected_records : {std::uint64_t{1}, std::uint64_t{1} << 29}) {
        const auto path = scratch.path("positions");
        write(records, path, scratch.path(""), expected_records);
        PositionIndex index;
        ASSERT_TRUE(index.open(path));
        for (const auto& [key, moves] : records.expected) {
            std::vector<MoveStatistics> sums;
            index.add_statistics(key, records.games, sums);
            ASSERT_EQ(sums.size(), moves.size()) << key;
            std::size_t at = 0;
            std::set<std::uint32_t> through;
            for (const auto& [move, games] : moves) {
                MoveStatistics sum;
                for (const auto game : games) sum.add(records.games[game]);
                sum.move = move;
                ASSERT_EQ(std::memcmp(&sums[at++], &sum, sizeof sum), 0) << key << ' ' << move;
                through.insert(games.begin(), games.end());
                std::vector<std::uint32_t> numbers;
                index.append_games(key, move, numbers);
                ASSERT_EQ(std::set(numbers.begin(), numbers.end()), games);
            }
            std::vector<std::uint32_t> numbers;
            index.append_games(key, numbers);
            ASSERT_EQ(std::set(numbers.begin(), numbers.end()), through);
        }
        std::vector<std::uint32_t> numbers;
        index.append_games(std::uint64_t{1234567} << 40, numbers);
        EXPECT_TRUE(numbers.empty());
    }
}

TEST(PositionIndex, RefusesWhatIsDamaged) {
    const Records records;
    const ScratchDirectory scratch;
    write(records, scratch.path("positions"), scratch.path(""), 1);
    const auto whole = scratch.content("positions");
    const auto opens = [&](const std::string& bytes) {
        return PositionIndex().open(scratch.write("damaged", bytes));
    };
    ASSERT_TRUE(opens(whole));
    for (const std::size_t size :
         {std::size_t{0}, std::size_t{10}, sizeof(position_file::Header), whole.size() - 1}) {
        EXPECT_FALSE(opens(whole.substr(0, size))) << size;
    }
    EXPECT_FALSE(opens(whole + "x"));
    position_file::Header header;
    std::memcpy(&header, whole.data(), sizeof header);
    for (const auto place : {std::uint64_t{0}, std::uint64_t{9}, std::uint64_t{33}, std::uint64_t{60},
                             position_file::stretches_at() + 9, position_file::busy_at(header) + 1,
                             position_file::moves_at(header) + 5}) {
        auto damaged = whole;
        damaged[place] = static_cast<char>(damaged[place] ^ 4);
        EXPECT_FALSE(opens(damaged)) << place;
    }
}

TEST(PositionSorter, StopsAndTellsAFullDisk) {
    const Records records;
    const ScratchDirectory scratch;
    PositionSorter sorter(scratch.path(""), 1);
    sorter.add(records.records, 0);
    std::stop_source stop;
    stop.request_stop();
    EXPECT_FALSE(sorter.write(
        scratch.path("p"), records.games, 0, 2, [](std::uint64_t) {}, stop.get_token()));
    EXPECT_THROW(sorter.write("/dev/full", records.games, 0, 2, [](std::uint64_t) {}, {}),
                 std::runtime_error);
}

}  // namespace
}  // namespace velmora
