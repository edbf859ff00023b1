#include <string>

#include <gtest/gtest.h>

#include "referee.h"

namespace velmora {
namespace {

using test::Lines;
using test::Referee;

const std::string talkative = "name Alpha\ninfo 1\nline e2e4 e7e5\nplay\n";

Lines info(const std::string& side, const std::string& move) {
    return {side + "_info depth 1 score cp 15 time 1 nodes 1000 nps 100000 pv " + move};
}

TEST(AnalyzeMode, FollowsTheMovesAndGoesOnFromASetBoard) {
    Referee referee;
    referee.load("alpha", talkative);
    referee.say("analyzeposition");
    EXPECT_EQ(referee.take_until(info("white", "e2e4").front()), info("white", "e2e4"));
    referee.say("usermove e2e4");
    // The new side is noted after the analysis has started, so the first line may still go to the old one.
    const Lines lines =
        referee.window().take_until([](const auto& line) { return line.ends_with("pv e7e5"); });
    EXPECT_EQ(lines.size(), 1U);
    referee.say("setboard 7k/8/6K1/8/8/8/8/5Q2 b - - 0 1");
    referee.say("analyzeposition");
    EXPECT_EQ(referee.take_until(info("black", "h8g8").front()), info("black", "h8g8"));
    referee.say("human_human");
    EXPECT_EQ(referee.take_answers(), Lines());
    const std::string sent = referee.workplace.sent_to("alpha");
    const std::string start = "position fen rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1 moves";
    EXPECT_EQ(sent.substr(sent.find("position"), sent.rfind("infinite") - sent.find("position")),
              start + "\ngo infinite\nstop\n" + start +
                  " e2e4\ngo infinite\nstop\nposition fen 7k/8/6K1/8/8/8/8/5Q2 b - - 0 1 moves\ngo ");
}

TEST(AnalyzeMode, DropsBestmovesAndIllegalMoves) {
    Referee referee;
    referee.load("alpha", "name Alpha\nat 1 answer bestmove e2e4\ninfo 1\nline d2d4\nplay\n");
    referee.say("analyzeposition");
    referee.take_until(info("white", "d2d4").front());
    referee.say("usermove e2e5");
    referee.say("usermove nonsense");
    EXPECT_EQ(referee.take_answers(), Lines());
    // The stop brings out the search's answer, the position stays.
    referee.say("analyzeposition");
    EXPECT_EQ(referee.take_until(info("white", "d2d4").front()), info("white", "d2d4"));
}

TEST(AnalyzeMode, AResignationIsAResultAllTheSame) {
    Referee referee;
    referee.load("alpha", "until uci\nanswer uciok\nuntil go\nanswer resign\nrest\n");
    referee.say("analyzeposition");
    EXPECT_EQ(referee.take_until("0-1 {white resigns}"), Lines({"0-1 {white resigns}"}));
    EXPECT_EQ(referee.take_answers(), Lines());
}

TEST(AnalyzeMode, AnEngineThatDiedIsReplacedOnTheSamePosition) {
    Referee referee;
    referee.load("alpha", "name Alpha\ninfo 1\nat 1 die\nline e2e4 e7e5\nplay\n");
    referee.say("usermove e2e4");
    referee.say("analyzeposition");
    referee.take_until(info("white", "e2e4").front());
    referee.say("usermove e2e4");  // the stop lets it die; half a second later it is told to go on
    Lines lines;
    referee.workplace.wait_for([&] {
        referee.say("wake_up");
        lines = referee.take_answers();
        return !lines.empty();
    });
    EXPECT_EQ(lines, Lines({"telluser engine1 crashed"}));
    referee.say("analyzeposition");
    EXPECT_EQ(referee.take_until(info("black", "e7e5").front()), info("black", "e7e5"));
}

}  // namespace
}  // namespace velmora
