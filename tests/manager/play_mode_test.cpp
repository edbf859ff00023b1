#include <string>

#include <gtest/gtest.h>

#include "referee.h"

namespace velmora {
namespace {

using test::Lines;
using test::Referee;

const std::string fools_mate = "name Alpha\nline f2f3 e7e5 g2g4 d8h4\nplay\n";

TEST(PlayMode, EngineAnswersAndMates) {
    Referee referee;
    referee.load("alpha", fools_mate);
    referee.say("playother");
    referee.say("usermove f2f3");
    EXPECT_EQ(referee.take_until("shout"),
              Lines({"blackname Alpha", "whitename Human", "move e7e5", "btime #", "shout"}));
    referee.say("usermove g2g4");
    EXPECT_EQ(referee.take_until("telluser result: 0-1"),
              Lines({"blackname Alpha", "whitename Human", "move d8h4", "btime #", "shout",
                     "0-1 {Black mates}", "round ?", "telluser result: 0-1"}));
}

TEST(PlayMode, PersonMates) {
    Referee referee;
    referee.load("alpha", fools_mate);
    referee.say("go");
    EXPECT_EQ(referee.take_until("shout"),
              Lines({"whitename Alpha", "blackname Human", "move f2f3", "wtime #", "shout"}));
    referee.say("usermove e7e5");
    EXPECT_EQ(referee.take_until("shout"),
              Lines({"whitename Alpha", "blackname Human", "move g2g4", "wtime #", "shout"}));
    referee.say("usermove d8h4");
    EXPECT_EQ(referee.take_until("telluser result: 0-1"),
              Lines({"whitename Alpha", "blackname Human", "0-1 {Black mates}", "round ?",
                     "telluser result: 0-1"}));
    // The mode stays, and nothing can be played any more.
    referee.say("usermove a2a3");
    EXPECT_EQ(referee.take_answers(), Lines({"blackname Alpha", "whitename Human"}));
}

TEST(PlayMode, EndsOfGames) {
    const struct {
        const char* name;
        const char* fen;
        const char* script;
        const char* user_move;
        Lines expected;  // behind the names
    } rows[] = {
        {"stalemate", "7k/8/6K1/8/8/8/8/5Q2 w - - 0 1", "play", "f1f7", {"1/2-1/2 {Stalemate}"}},
        {"promotion", "k7/7P/1K6/8/8/8/8/8 w - - 0 1", "play", "h7h8q", {"1-0 {White mates}"}},
        {"dead material",
         "8/8/8/3k4/4p3/8/8/3K1N2 b - - 0 1",
         "line e4e3 f1e3\nplay",
         "e4e3",
         {"move f1e3", "wtime #", "shout", "1/2-1/2 {Draw by insufficient material}"}},
        {"resignation",
         "4k3/8/8/8/8/8/8/R3K3 w - - 0 1",
         "at 1 answer resign\nplay",
         "a1a7",
         {"1-0 {black resigns}"}},
        {"resignation as White",
         "4k3/8/8/8/8/8/8/R3K3 b - - 0 1",
         "at 1 answer resign\nplay",
         "e8e7",
         {"0-1 {white resigns}"}},
        {"illegal move",
         "4k3/8/8/8/8/8/8/R3K3 w - - 0 1",
         "at 1 answer bestmove e8e6\nplay",
         "a1a7",
         {"1-0 {illegal move: e8e6}"}},
        {"no move at all",
         "4k3/8/8/8/8/8/8/R3K3 b - - 0 1",
         "at 1 answer bestmove zwetschge\nplay",
         "e8e7",
         {"0-1 {illegal move: zwetschge}"}},
    };
    for (const auto& row : rows) {
        Referee referee;
        referee.load("alpha", std::string("name Alpha\n") + row.script);
        referee.say("playother");
        referee.say("setboard " + std::string(row.fen));
        referee.say("usermove " + std::string(row.user_move));
        const bool user_is_white = std::string(row.fen).find(" w ") != std::string::npos;
        Lines expected = user_is_white ? Lines({"blackname Alpha", "whitename Human"})
                                       : Lines({"whitename Alpha", "blackname Human"});
        expected.insert(expected.end(), row.expected.begin(), row.expected.end());
        const auto word = row.expected.back().substr(0, row.expected.back().find(' '));
        expected.insert(expected.end(), {"round ?", "telluser result: " + word});
        EXPECT_EQ(referee.take_until(expected.back()), expected) << row.name;
    }
}

TEST(PlayMode, AliasIsPreferredToTheReportedName) {
    Referee referee;
    referee.workplace.install_engine("The Alias", fools_mate);
    referee.say("load 0 name The Alias");
    referee.say("go");
    EXPECT_EQ(referee.take_until("shout"), Lines({"engine1name Alpha", "whitename The Alias",
                                                  "blackname Human", "move f2f3", "wtime #", "shout"}));
}

TEST(PlayMode, AnEngineWithoutAMoveLeavesTheGameStanding) {
    for (const auto* none : {"0000", "(none)"}) {
        Referee referee;
        referee.load("alpha",
                     std::string("at 1 answer bestmove ") + none + "\nline e2e4\nname Alpha\nplay\n");
        ::testing::internal::CaptureStderr();
        referee.say("go");
        referee.workplace.wait_for(
            [&] { return referee.workplace.sent_to("alpha").find("go ") != std::string::npos; });
        EXPECT_EQ(referee.take_until("blackname Human"), Lines({"whitename Alpha", "blackname Human"}));
        // Nothing shows that the answer has come, but that the engine may be told to go again.
        Lines lines;
        while (lines.empty()) {
            referee.say("go");
            lines = referee.take_answers();
        }
        referee.take_until("shout");
        EXPECT_EQ(
            ::testing::internal::GetCapturedStderr(),
            "Current game:\nrnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1\n\nengine answered '" +
                std::string(none) + "'\n");
    }
}

TEST(PlayMode, ASecondGoIsIgnoredWhileTheEngineThinks) {
    Referee referee;
    referee.load("alpha", "name Alpha\nthink 100000\nline e2e4\nplay\n");
    referee.say("level fixed_depth 7");
    referee.take_until("wtime #");
    referee.say("go");
    referee.say("go");
    EXPECT_EQ(referee.take_answers(), Lines({"whitename Alpha", "blackname Human"}));
    // The person's own move takes the game over: the search is stopped, its answer dropped.
    referee.say("usermove d2d4");
    EXPECT_EQ(referee.take_answers(), Lines({"blackname Alpha", "whitename Human"}));
    const std::string start = "position fen rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1 moves";
    const std::string expected =
        start + "\nisready\ngo depth 7\nstop\n" + start + " d2d4\nisready\ngo depth 7\n";
    std::string sent;
    referee.workplace.wait_for([&] {
        sent = referee.workplace.sent_to("alpha");
        return sent.ends_with("d2d4\nisready\ngo depth 7\n");
    });
    EXPECT_EQ(sent.substr(sent.find("position")), expected);
}

TEST(PlayMode, WithoutAnEngineNothingChanges) {
    Referee referee;
    for (const auto* command : {"go", "playother", "analyzeposition", "new", "setoption name Hash value 1"}) {
        referee.say(command);
    }
    EXPECT_EQ(referee.take_answers(), Lines());
    EXPECT_FALSE(referee.manager().has_engine());
}

TEST(PlayMode, HumanHumanKeepsTheLastMovePendingAndPlaysNone) {
    Referee referee;
    referee.load("alpha", fools_mate);
    for (const auto* move : {"f2f3", "e7e5", "g2g4", "d8h4"}) referee.say(std::string("usermove ") + move);
    EXPECT_EQ(referee.take_answers(), Lines());
    // The position never changed, and the pending move goes with the new mode.
    referee.say("go");
    EXPECT_EQ(referee.take_until("shout"),
              Lines({"whitename Alpha", "blackname Human", "move f2f3", "wtime #", "shout"}));
}

TEST(PlayMode, SetboardWhileTheEngineThinksGivesTheTurnToThePerson) {
    Referee referee;
    referee.load("alpha", "name Alpha\nthink 100000\nline e2e4\nplay\n");
    referee.say("go");
    referee.say("setboard 4k3/8/8/8/8/8/8/R3K3 b - - 0 1");
    EXPECT_EQ(referee.take_answers(), Lines({"whitename Alpha", "blackname Human"}));
    referee.say("usermove e8e7");
    EXPECT_EQ(referee.take_answers(), Lines({"whitename Alpha", "blackname Human"}));
}

TEST(PlayMode, NewGameReloadsAnEngineThatCannotBeReused) {
    Referee referee;
    referee.load("alpha", fools_mate);
    referee.say("playother");
    referee.say("usermove f2f3");
    referee.take_until("shout");
    referee.say("new");
    referee.say("usermove f2f3");
    EXPECT_EQ(referee.take_until("shout"),
              Lines({"new", "blackname Alpha", "whitename Human", "move e7e5", "btime #", "shout"}));
    std::string sent = referee.workplace.sent_to("alpha");
    sent.erase(0, sent.rfind("uci\n"));
    if (const auto quit = sent.find("quit\n"); quit != std::string::npos)
        sent.erase(quit, 5);  // the old process
    EXPECT_EQ(sent.substr(0, sent.find("position")),
              "uci\nucinewgame\nisready\nucinewgame\nisready\nucinewgame\nisready\n"
              "ucinewgame\nisready\n");
}

TEST(PlayMode, NewGameInChess960DrawsAPosition) {
    Referee referee;
    referee.load("alpha", "name Alpha\noption name UCI_Chess960 type check default true\nplay\n");
    referee.say("playother");
    referee.say("new");
    const Lines lines = referee.take_answers();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0], "new");
    EXPECT_TRUE(lines[1].starts_with("setboard ")) << lines[1];
    EXPECT_NE(lines[1].find("/pppppppp/8/8/8/8/PPPPPPPP/"), std::string::npos) << lines[1];
}

}  // namespace
}  // namespace velmora
