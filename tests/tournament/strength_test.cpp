#include <array>
#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "tournament/rating.h"
#include "tournament/sprt.h"
#include "tournament/standings.h"

namespace velmora {
namespace {

const OutcomeCounts games_alone{{300, 420, 340}, {}};
const OutcomeCounts in_pairs{{0, 0, 0}, {28, 120, 230, 140, 32}};

// The expected ratios come from maximizing the likelihood of the shares directly: with the mean, or the mean
// in deviations, held fast, the free shares are varied until nothing gains; the ratings from
// strength_table.py, which sums over the single games.
TEST(Strength, RatiosAgreeWithADirectSearch) {
    const auto ratio = [](double elo0, double elo1, Sprt::Model model) {
        return Sprt{elo0, elo1, 0.05, 0.05, model}.ratio(games_alone, RatingUnit::game);
    };
    EXPECT_NEAR(ratio(0, 20, Sprt::Model::logistic), 0.90665308, 1e-4);
    EXPECT_NEAR(ratio(-10, 10, Sprt::Model::logistic), 3.81206771, 1e-4);
    EXPECT_NEAR(ratio(10, 20, Sprt::Model::normalized), 0.16584805, 1e-3);
    EXPECT_NEAR(Sprt().upper(), 2.944, 1e-3);
    EXPECT_EQ(Sprt().ratio({}, RatingUnit::pair), 0);
}

// By scipy's SLSQP over the five shares, under the two constraints.
TEST(Strength, PairsAreFiveOutcomes) {
    const auto ratio = [](double elo0, double elo1, Sprt::Model model) {
        return Sprt{elo0, elo1, 0.05, 0.05, model}.ratio(in_pairs, RatingUnit::pair);
    };
    EXPECT_NEAR(ratio(0, 10, Sprt::Model::logistic), 0.77066557, 1e-4);
    EXPECT_NEAR(ratio(-5, 5, Sprt::Model::logistic), 1.76799923, 1e-4);
    EXPECT_NEAR(ratio(0, 10, Sprt::Model::normalized), 0.73938848, 1e-3);
    EXPECT_NEAR(ratio(5, 15, Sprt::Model::normalized), 0.28490158, 1e-3);
}

// Mean and variance summed over the single games and pairs, by a script of its own.
TEST(Strength, RatingsAgreeWithSumsOverTheGames) {
    struct Row {
        OutcomeCounts counts;
        RatingUnit unit;
        double elo, error, normalized, normalized_error, superiority;
    };
    OutcomeCounts paired = in_pairs;
    // The games of these pairs, where 1-1 is two draws, as far as the score goes.
    paired.games = {28 * 2 + 120, 120 + 230 * 2 + 140, 140 + 32 * 2};
    for (const Row& row :
         {Row{games_alone, RatingUnit::game, 13.11700536, 16.26785634, 16.89289624, 20.91551554, 0.94329003},
          Row{paired, RatingUnit::pair, 8.84572572, 13.83902202, 13.13623581, 20.53171200, 0.89507661}}) {
        const auto rating = rating_of(row.counts, row.unit);
        EXPECT_NEAR(rating.elo.value_or(0), row.elo, 1e-6);
        EXPECT_NEAR(rating.error.value_or(0), row.error, 1e-6);
        EXPECT_NEAR(rating.normalized_elo.value_or(0), row.normalized, 1e-6);
        EXPECT_NEAR(rating.normalized_error.value_or(0), row.normalized_error, 1e-6);
        EXPECT_NEAR(rating.superiority.value_or(0), row.superiority, 1e-6);
    }
    // What was won throughout tells no difference, and one kind of result no error.
    EXPECT_FALSE(rating_of({{0, 0, 3}, {}}, RatingUnit::game).elo);
    EXPECT_FALSE(rating_of({{0, 3, 0}, {}}, RatingUnit::game).error);
}

/// How often a test of 0 against 20 normalized Elo accepts H1 where pairs come with the given shares.
int accepted(const std::array<double, 5>& shares, int tests) {
    const Sprt sprt{0, 20, 0.05, 0.05, Sprt::Model::normalized};
    std::mt19937 random(7);
    std::discrete_distribution<std::size_t> outcome(shares.begin(), shares.end());
    int count = 0;
    for (int test = 0; test < tests; ++test) {
        OutcomeCounts counts;
        auto decision = Sprt::Decision::none;
        while (decision == Sprt::Decision::none) {
            for (int pair = 0; pair < 20; ++pair) ++counts.pairs.at(outcome(random));
            decision = sprt.decide(sprt.ratio(counts, RatingUnit::pair));
        }
        count += decision == Sprt::Decision::h1 ? 1 : 0;
    }
    return count;
}

// 5 % of 200 are 10, their deviation 3.1: 22 is beyond any luck.
TEST(Strength, TestsAreWrongAsRarelyAsTheyPromise) {
    EXPECT_LE(accepted({0.05, 0.20, 0.50, 0.20, 0.05}, 200), 22);
    // Mean 0.5 + t sigma with t = 20 ln 10 / 800 sqrt 2 and sigma = 0.2236: shifted by 0.0182.
    EXPECT_GE(accepted({0.0318, 0.1818, 0.5, 0.2182, 0.0682}, 200), 200 - 22);
}

TEST(Standings, OrderByShareThenByGamesOfEqualsThenBySonnebornBerger) {
    Standings standings(4);
    standings.add(0, 1, "1-0");
    standings.add(1, 2, "1-0");
    standings.add(2, 0, "1/2-1/2");
    standings.add(3, 0, "0-1");
    standings.add(1, 3, "1-0");
    standings.add(2, 3, "1/2-1/2");
    standings.add(2, 3, "*");
    standings.add(2, 9, "1-0");
    const auto table = standings.table();
    ASSERT_EQ(table.size(), 4U);
    EXPECT_EQ(table[0].player, 0U);  // 2.5 of 3
    EXPECT_EQ(table[1].player, 1U);
    EXPECT_EQ(table[2].player, 2U);
    EXPECT_EQ(table[3].player, 3U);
    EXPECT_EQ(table[0].wins_as_white, 1U);
    EXPECT_EQ(table[0].wins_as_black, 1U);
    EXPECT_DOUBLE_EQ(table[0].sonneborn_berger, 2 + 0.5 + 0.5);
    EXPECT_EQ(standings.games(), 6U);

    // The second won against the first, whose points came from better opponents.
    Standings equals(4);
    equals.add(1, 0, "1-0");
    equals.add(0, 2, "1-0");
    equals.add(3, 1, "1-0");
    equals.add(2, 3, "1-0");
    equals.add(2, 3, "1-0");
    EXPECT_EQ(equals.table()[1].player, 1U);
    EXPECT_EQ(equals.table()[2].player, 0U);
}

TEST(Standings, TwoGamesOfAnEncounterArePair) {
    Standings standings(3);
    standings.add(0, 1, "1-0", 0);
    standings.add(1, 0, "0-1", 0);
    standings.add(0, 1, "1/2-1/2", 1);
    standings.add(0, 2, "1-0", 3);
    standings.add(1, 0, "1-0", 1);
    standings.add(0, 1, "0-1", 2);
    standings.add(0, 1, "0-1", ~std::uint64_t{0});
    EXPECT_EQ(standings.against(0, 1).games, (std::array<std::uint64_t, 3>{3, 1, 2}));
    EXPECT_EQ(standings.against(0, 1).pairs, (std::array<std::uint64_t, 5>{0, 1, 0, 0, 1}));
    EXPECT_EQ(standings.against(1, 0).pairs, (std::array<std::uint64_t, 5>{1, 0, 0, 1, 0}));
}

}  // namespace
}  // namespace velmora
