#include "matches/match_state.h"

#include <fstream>
#include <stdexcept>

#include <gtest/gtest.h>

#include "tests/support/scratch_directory.h"

namespace velmora {
namespace {

TEST(MatchState, GoesOnBehindATornLineAndCountsNothingTwice) {
    const ScratchDirectory scratch;
    const std::string path = scratch.path("state");
    {
        MatchState state;
        state.create(path, {"-engine", "cmd=a b"});
        EXPECT_TRUE(state.add({1, 0, 0, 1, "1-0"}));
        EXPECT_TRUE(state.add({3, 1, 1, 0, "1/2-1/2"}));
    }
    std::ofstream(path, std::ios::app) << "game 3 1 1 0 1-0\ngame 4 1 0 1 *\ngame 2 0 1 0 1-";
    {
        MatchState state;
        state.resume(path);
        EXPECT_EQ(state.words(), (std::vector<std::string>{"-engine", "cmd=a b"}));
        ASSERT_EQ(state.games().size(), 2);
        EXPECT_EQ(state.games()[1].result, "1/2-1/2");
        EXPECT_TRUE(state.add({2, 0, 1, 0, "0-1"}));
    }
    MatchState state;
    state.read(path);
    ASSERT_EQ(state.games().size(), 3);
    EXPECT_EQ(state.games()[2].number, 2);
    EXPECT_EQ(state.games()[2].result, "0-1");
}

TEST(MatchState, NeitherReplacesAFileNorReadsAnother) {
    const ScratchDirectory scratch;
    const std::string path = scratch.write("other", "[Event \"x\"]\n");
    EXPECT_THROW(MatchState().create(path, {}), std::runtime_error);
    EXPECT_THROW(MatchState().resume(path), std::runtime_error);
    EXPECT_EQ(scratch.content("other"), "[Event \"x\"]\n");
}

}  // namespace
}  // namespace velmora
