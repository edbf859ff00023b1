#include "matches/adjudicator.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace velmora {
namespace {

/// The ply after which the game is over and how, for the scores of both sides in turn, White's view.
std::string judged(const AdjudicationSettings& settings, const std::vector<int>& scores) {
    constexpr int silent = 99999;
    Adjudicator adjudicator(settings);
    for (std::uint32_t ply = 1; ply <= scores.size(); ++ply) {
        const Side side = ply % 2 == 1 ? Side::white : Side::black;
        std::optional<Evaluation> score = Evaluation{Evaluation::Kind::centipawns, scores[ply - 1]};
        if (scores[ply - 1] == silent) score.reset();
        adjudicator.add_move(side, ply, score);
        if (const auto outcome = adjudicator.outcome()) {
            return std::to_string(ply) + ' ' + std::string(result_token(outcome->result));
        }
    }
    return "goes on";
}

TEST(Adjudicator, JudgesByRowsOfScores) {
    struct Row {
        AdjudicationSettings settings;
        std::vector<int> scores;
        std::string end;
    };
    const AdjudicationSettings draw{2, 2, 10, 0, 0, false, 0};
    const AdjudicationSettings resign{0, 0, 0, 2, 500, false, 0};
    const AdjudicationSettings two_sided{0, 0, 0, 2, 500, true, 0};
    const AdjudicationSettings limit{0, 0, 0, 0, 0, false, 2};
    const std::vector<Row> rows{
        {draw, {0, 0, 5, -10, 0, 10, 0}, "6 1/2-1/2"},
        {draw, {0, 0, 0, 0, 11, 0, 0, 0}, "goes on"},
        {draw, {0, 0, 0, 99999, 0, 0, 0}, "goes on"},
        {resign, {-500, 0, -600, 0}, "3 0-1"},
        {resign, {0, 500, 0, 400, 0, 700, 0, 800}, "8 1-0"},
        {two_sided, {-500, 0, -600, -700, -800, -900}, "6 0-1"},
        {limit, {300, 300, 300, 300, 300}, "4 1/2-1/2"},
        {{}, {0, 0, -900, -900, -900, -900}, "goes on"},
    };
    for (const auto& row : rows) EXPECT_EQ(judged(row.settings, row.scores), row.end);
}

}  // namespace
}  // namespace velmora
