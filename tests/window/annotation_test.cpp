#include "window/session/annotation.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

struct Row {
    const char* name;
    Side side;
    const char *before, *line, *after;
};

TEST(Annotation, OneLineOfSearchOutput) {
    const Row rows[] = {
        {"all parts of White's line", Side::white, "old",
         " depth 12 score cp 34 time 2500 nodes 9000 nps 3600 pv e2e4",
         "[%eval 0.34][%emt 0:0:3][%acn 9000][%nps 3600][%depth 12]"},
        {"Black's mate is negated", Side::black, "", " score mate 3", "[%eval mate -3]"},
        {"Black's score is negated, zero has no sign", Side::black, "", " score cp 0", "[%eval 0]"},
        {"a mate replaces the score", Side::white, "", " score cp 900 score mate -2", "[%eval mate -2]"},
        {"a second is not above a second", Side::white, "", " time 1000 score cp 1", "[%eval 0.01]"},
        {"hours and minutes", Side::white, "", " time 3723400", "[%emt 1:2:3]"},
        {"seconds are rounded up to sixty", Side::white, "", " time 59600", "[%emt 0:0:60]"},
        {"without a score the annotation grows", Side::white, "[%eval 1]", " depth 9 nodes 5",
         "[%eval 1][%acn 5][%depth 9]"},
        {"a bound clears at once", Side::white, "[%eval 1]", " score lowerbound 7 depth 3", "[%depth 3]"},
        {"hashfull's number is no key", Side::white, "", " hashfull 7 depth 3 nodes 0 nps -1", "[%depth 3]"},
        {"numbers that are none", Side::white, "", " score cp x nodes y time z", "[%eval 0]"},
        {"an engine's braces and brackets", Side::white, "", " depth 5}1-0{]\"[", "[%depth 5)1-0()'(]"},
        {"an endless time is none", Side::white, "", " time 1e300", ""},
    };
    for (const Row& row : rows) {
        std::string annotation = row.before;
        annotate(annotation, row.line, row.side);
        EXPECT_EQ(annotation, row.after) << row.name;
    }
}

TEST(Annotation, KeepsTheEvaluationAndDropsTheOldestOfTheRest) {
    std::string annotation;
    annotate(annotation, " score cp 34 depth 1", Side::white);
    for (int depth = 2; depth < 1000; ++depth) {
        annotate(annotation, " depth " + std::to_string(depth), Side::white);
    }
    EXPECT_TRUE(annotation.starts_with("[%eval 0.34][%depth 9")) << annotation;
    EXPECT_TRUE(annotation.ends_with("[%depth 998][%depth 999]")) << annotation;
    EXPECT_LE(annotation.size(), 900U);
    EXPECT_GT(annotation.size(), 800U);
}

}  // namespace
}  // namespace velmora
