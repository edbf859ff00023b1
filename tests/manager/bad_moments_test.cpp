#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "referee.h"

namespace velmora {
namespace {

using test::Lines;
using test::Referee;

const std::string player = "name Alpha\nline f2f3 e7e5 g2g4 d8h4\nplay\n";

/// A referee in play against an engine that has just died; nothing has shown it yet.
struct DeadEngine {
    DeadEngine() {
        referee.load("alpha", player);
        referee.say("debug true");
        referee.say("playother");
        EXPECT_EQ(referee.take_answers(), Lines());
        referee.workplace.kill_engine("alpha");
        referee.workplace.wait_for([&] {
            return referee.workplace.read("engine1.log").find("engine crashed") != std::string::npos;
        });
    }

    Referee referee;
};

TEST(BadMoments, ADeadEngineIsReplacedAndTheGameGoesOn) {
    DeadEngine dead;
    dead.referee.say("wake_up");
    EXPECT_EQ(dead.referee.take_answers(), Lines({"telluser engine1 crashed"}));
    dead.referee.say("usermove f2f3");
    EXPECT_EQ(dead.referee.take_until("shout"),
              Lines({"blackname Alpha", "whitename Human", "move e7e5", "btime #", "shout"}));
}

TEST(BadMoments, TheMoveThatMeetsADeadEngineBelongsToTheGame) {
    DeadEngine dead;
    dead.referee.say("usermove f2f3");
    EXPECT_EQ(dead.referee.take_answers(),
              Lines({"blackname Alpha", "whitename Human", "telluser engine1 crashed"}));
    // The window shows the move, and the new engine goes on from there.
    dead.referee.say("go");
    EXPECT_EQ(dead.referee.take_until("shout"),
              Lines({"blackname Alpha", "whitename Human", "move e7e5", "btime #", "shout"}));
}

TEST(BadMoments, AMateAgainstADeadEngineIsAMate) {
    DeadEngine dead;
    dead.referee.say("setboard 6k1/5ppp/8/8/8/8/8/R5K1 w - - 0 1");
    EXPECT_EQ(dead.referee.take_answers(), Lines({"telluser engine1 crashed"}));
    dead.referee.workplace.kill_engine("alpha");
    dead.referee.workplace.wait_for([&] {
        const std::string log = dead.referee.workplace.read("engine1.log");
        return log.find("engine crashed") != log.rfind("engine crashed");
    });
    dead.referee.say("usermove a1a8");
    EXPECT_EQ(dead.referee.take_until("telluser result: 1-0"),
              Lines({"blackname Alpha", "whitename Human", "telluser engine1 crashed", "1-0 {White mates}",
                     "round ?", "telluser result: 1-0"}));
}

TEST(BadMoments, AnEngineThatDoesNotComeBackLeavesTheSeatEmpty) {
    DeadEngine dead;
    const std::string program = dead.referee.workplace.path("alpha.engine");
    std::filesystem::remove(program);
    dead.referee.say("wake_up");
    EXPECT_EQ(dead.referee.take_answers(),
              Lines({"telluser engine1 crashed", "engine1name ???", "telluser " + program + " failed"}));
    EXPECT_FALSE(dead.referee.manager().has_engine());
    for (const auto* command :
         {"usermove f2f3", "new", "go", "playother", "analyzeposition", "level fixed_depth 1"}) {
        dead.referee.say(command);
    }
    EXPECT_EQ(dead.referee.take_answers(), Lines());
}

TEST(BadMoments, AnEngineThatDiesWhileItThinksIsReplacedAndCanBeToldToGo) {
    Referee referee;
    referee.load("alpha", "name Alpha\nline f2f3\nat 1 die\nplay\n");
    referee.say("go");
    Lines lines = referee.take_until("blackname Human");
    referee.workplace.wait_for([&] {
        referee.workplace.add_engine("alpha", player);
        referee.say("wake_up");
        lines = referee.take_answers();
        return !lines.empty();
    });
    EXPECT_EQ(lines, Lines({"telluser engine1 crashed"}));
    referee.say("go");
    EXPECT_EQ(referee.take_until("shout"),
              Lines({"whitename Alpha", "blackname Human", "move f2f3", "wtime #", "shout"}));
}

TEST(BadMoments, InTheMiddleOfASearch) {
    const struct {
        const char* command;
        Lines expected;  // up to the end of the exchange that follows
    } rows[] = {
        {"new", {"new", "blackname Alpha", "whitename Human"}},
        {"playother", {"blackname Alpha", "whitename Human"}},
        {"analyzeposition\nplayother", {"blackname Alpha", "whitename Human"}},
        {"human_human\nplayother", {"blackname Alpha", "whitename Human"}},
    };
    for (const auto& row : rows) {
        Referee referee;
        referee.load("alpha", "name Alpha\nthink 300\nline f2f3 e7e5\nplay\n");
        referee.say("go");
        EXPECT_EQ(referee.take_until("blackname Human"), Lines({"whitename Alpha", "blackname Human"}));
        for (const auto command : text::words(row.command)) referee.say(std::string(command));
        // The answer of the search that was stopped must not be taken for that to this move.
        referee.say("usermove f2f3");
        Lines expected = row.expected;
        expected.insert(expected.end(), {"move e7e5", "btime #", "shout"});
        EXPECT_EQ(referee.take_until("shout"), expected) << row.command;
    }
}

TEST(BadMoments, AResignationOutOfTurnEndsTheGame) {
    Referee referee;
    referee.load(
        "alpha",
        "until uci\nanswer id name Alpha\nanswer uciok\nuntil go\nanswer bestmove e7e5\nanswer resign\n");
    referee.say("playother");
    referee.say("usermove f2f3");
    EXPECT_EQ(referee.take_until("telluser result: 1-0"),
              Lines({"blackname Alpha", "whitename Human", "move e7e5", "btime #", "shout",
                     "1-0 {black resigns}", "round ?", "telluser result: 1-0"}));
}

}  // namespace
}  // namespace velmora
