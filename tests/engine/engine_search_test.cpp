#include "engine/finding/engine_search.h"

#include <sys/stat.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/finding/engine_places.h"
#include "engine/finding/engine_question.h"
#include "tests/support/workplace.h"

namespace velmora {
namespace {

using testing::ElementsAre;

TEST(EngineSearch, AsksTheProgramsOfAFolderAndLeavesNoneBehind) {
    const test::Workplace place;
    place.add_engine("a_uci", "name Searcher\nplay\n");
    place.add_engine("b_xboard", "name Thinker\nplay xboard\n");
    place.write("c_tool", "#!/bin/sh\necho usage\n");
    place.write("notes.txt", "no program");
    ::chmod(place.path("c_tool").c_str(), 0755);
    // The scripts beside the programs may not be started, the folders below are somebody else's.
    const auto programs = programs_of_folder(place.path(""));
    ASSERT_THAT(programs,
                ElementsAre(place.path("a_uci.engine"), place.path("b_xboard.engine"), place.path("c_tool")));

    EngineSearch search;
    search.add(programs);
    search.add(programs);
    test::Workplace::wait_for([&] { return search.progress().asked.empty() && search.progress().done == 3; });
    const auto progress = search.progress();
    ASSERT_EQ(progress.engines.size(), 2U);
    EXPECT_EQ(progress.total, 3U);
    EXPECT_EQ(progress.engines[0].engine_name, "Searcher");
    EXPECT_EQ(progress.engines[0].protocol, Protocol::uci);
    EXPECT_EQ(progress.engines[1].engine_name, "Thinker");
    EXPECT_EQ(progress.engines[1].protocol, Protocol::xboard_v2);
    EXPECT_THAT(progress.others, ElementsAre(place.path("c_tool")));
    EXPECT_TRUE(place.processes_of("a_uci").empty());
}

TEST(EngineSearch, WaitsForNobodyLongerThanItsPatience) {
    const test::Workplace place;
    const auto hanging = place.add_engine("hanging", "ignore quit\nhang\n");
    EXPECT_FALSE(ask_engine(hanging, std::chrono::milliseconds(300)));
    EXPECT_TRUE(place.processes_of("hanging").empty());
    // And is cancelled at once.
    EngineSearch search;
    search.add({hanging});
    test::Workplace::wait_for([&] { return !place.processes_of("hanging").empty(); });
    search.cancel();
    EXPECT_TRUE(place.processes_of("hanging").empty());
}

TEST(EngineSearch, KnowsWhatPackagesInstall) {
    EXPECT_THAT(known_engine_programs(""), testing::Contains("/usr/games/stockfish"));
    const test::Workplace place;
    place.add_engine("toga2", "play\n", "");
    EXPECT_THAT(known_engine_programs(place.path("")), testing::Contains(place.path("toga2")));
    EXPECT_THAT(known_engine_programs("."), testing::Not(testing::Contains("./toga2")));
}

}  // namespace
}  // namespace velmora
