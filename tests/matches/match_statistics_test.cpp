#include "matches/match_statistics.h"

#include <vector>

#include <gtest/gtest.h>

namespace velmora {
namespace {

const MatchCounts tested{{300, 420, 340}, {}};

// The expected values come from maximizing the likelihood of the three shares directly: with the mean, or the
// mean in deviations, held fast, one share is left to vary, and a golden section finds its best value.
TEST(MatchStatistics, AgreeWithADirectSearch) {
    const auto ratio = [](double elo0, double elo1, SprtSettings::Model model) {
        return log_likelihood_ratio(tested, false, {elo0, elo1, 0.05, 0.05, model});
    };
    EXPECT_NEAR(ratio(0, 20, SprtSettings::Model::logistic), 0.90665308, 1e-4);
    EXPECT_NEAR(ratio(-10, 10, SprtSettings::Model::logistic), 3.81206771, 1e-4);
    EXPECT_NEAR(ratio(10, 20, SprtSettings::Model::normalized), 0.16584805, 1e-3);

    const auto estimate = estimate_strength(tested, false);
    EXPECT_NEAR(estimate.elo.value_or(0), 13.11700536, 1e-4);
    EXPECT_NEAR(estimate.error.value_or(0), 16.26785634, 1e-3);
    EXPECT_NEAR(estimate.superiority.value_or(0), 0.94329003, 1e-4);
    EXPECT_NEAR(SprtSettings().upper(), 2.944, 1e-3);
}

TEST(MatchStatistics, CountPairsOfOneEncounter) {
    const std::vector<StateGame> games{
        {1, 0, 0, 1, "1-0"}, {2, 0, 1, 0, "0-1"}, {3, 1, 0, 1, "1/2-1/2"}, {4, 1, 1, 0, "1-0"},
        {5, 2, 0, 1, "0-1"}, {7, 3, 0, 2, "1-0"}, {8, 4, 1, 0, "1/2-1/2"}, {9, 4, 0, 1, "1/2-1/2"}};
    MatchTally tally;
    for (const auto& game : games) tally.add(game);
    const auto counts = tally.counts(0, 1);
    EXPECT_EQ(counts.games, (std::array<std::uint64_t, 3>{2, 3, 2}));
    EXPECT_EQ(counts.pairs, (std::array<std::uint64_t, 5>{0, 1, 1, 0, 1}));
    EXPECT_EQ(tally.counts(1, 0).pairs, (std::array<std::uint64_t, 5>{1, 0, 1, 1, 0}));
    // One pair of a kind says nothing of the spread.
    EXPECT_FALSE(estimate_strength({{0, 0, 2}, {0, 0, 0, 0, 1}}, true).error);
    EXPECT_EQ(log_likelihood_ratio({}, true, {}), 0);
}

}  // namespace
}  // namespace velmora
