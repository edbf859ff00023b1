#include "window/session/search_display.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/window/headless_window.h"
#include "window/session/activity.h"

namespace velmora {
namespace {

/// The engine's lines as the panel gets them, one line each: "+0.35 20 1. e4 e5".
struct Panel : test::HeadlessWindow {
    explicit Panel(Mode mode) : HeadlessWindow(mode) {
        seat = Protocol::uci;
        Option lines("option name MultiPV type spin default 1 min 1 max 500");
        lines.value = "2";
        variables.options.emplace("MultiPV", lines);
        dispatcher.process("engine1name Searcher");
    }

    /// A line of a referee that has taken all commands.
    void say(const std::string& line) {
        link.receive(line, 1'000'000);
        dispatcher.process(line);
    }

    std::string shown() {
        std::string text;
        for (const ShownSearch& one : search.shown()) {
            text += one.covered ? "covered\n" : one.engine + ": " + one.head + "\n";
            for (const ShownLine& line : one.lines) {
                text += line.evaluation + " " + line.depth + (line.start.empty() ? "" : " " + line.start);
                for (const std::string& move : line.moves) text += " " + move;
                text += "\n";
            }
        }
        return text;
    }

    EngineVariables variables;
    SearchDisplay search{session, screen, engine, dispatcher, link, [this] { return variables; }};
    Activity activity{session, screen, engine, dispatcher};
};

TEST(SearchDisplay, FollowsTheBoardInAnAnalysis) {
    Panel panel(Mode::analyze_position);
    panel.dispatcher.process("white_info depth 20 multipv 2 score cp 12 time 61000 nps 1500000 pv d2d4");
    panel.dispatcher.process("white_info depth 20 multipv 1 score cp 35 pv e2e4 e7e5 g1f3 h1h8 e8e7");
    panel.dispatcher.process("white_info depth 21 currmove e2e4");
    EXPECT_EQ(panel.shown(),
              "Searcher: depth 21, 1500 k nodes/s, 1:01\n+0.35 20 1. e4 e5 2. Nf3\n+0.12 20 1. d4\n");
    EXPECT_EQ(panel.search.evaluation()->text(), "+0.35");
    EXPECT_EQ(panel.search.best_moves().size(), 2U);
    EXPECT_EQ(panel.search.moves_up_to(0, 0, 1).size(), 2U);
    EXPECT_EQ(panel.search.moves_up_to(0, 0, 3).size(), 0U);
    EXPECT_EQ(panel.search.position_behind_move(0, 1, 0),
              "rnbqkbnr/pppppppp/8/8/3P4/8/PPP1PPPP/RNBQKBNR b KQkq - 0 1");

    // What was said of the position before comes late, and is none of this one's.
    panel.session.play(panel.session.position().convert_to_move("e2e4"));
    EXPECT_FALSE(panel.search.evaluation());
    panel.dispatcher.process("black_info depth 22 multipv 1 score cp 36 pv e2e4 e7e5");
    EXPECT_EQ(panel.shown(), "Searcher: \n");
    panel.dispatcher.process("black_info depth 5 multipv 1 score cp 10 pv c7c5 g1f3");
    EXPECT_EQ(panel.shown(), "Searcher: depth 5\n-0.10 5 1... c5 2. Nf3\n");
}

TEST(SearchDisplay, HelpsNobodyAgainstTheWill) {
    Panel panel(Mode::human_computer);
    panel.dispatcher.process("white_info depth 5 score cp 10 pv e2e4");
    EXPECT_EQ(panel.shown(), "covered\n");
    panel.search.uncover();
    EXPECT_EQ(panel.shown(), "Searcher: depth 5\n+0.10 5 1. e4\n");
    EXPECT_TRUE(panel.search.best_moves().empty());
    EXPECT_FALSE(panel.search.evaluation());
    panel.session.new_game();
    EXPECT_EQ(panel.shown(), "covered\n");
}

TEST(SearchDisplay, AsksForLinesWithinWhatTheEngineHas) {
    Panel panel(Mode::analyze_position);
    panel.referee.take();
    panel.search.ask_for_lines(1);
    panel.search.ask_for_lines(4);
    EXPECT_EQ(panel.referee.take(), std::vector<std::string>{"0 setoption name MultiPV value 3"});
    panel.variables.options.clear();
    panel.search.ask_for_lines(1);
    EXPECT_TRUE(panel.referee.take().empty());
}

TEST(Activity, SaysWhatGoesOn) {
    Panel panel(Mode::human_computer);
    EXPECT_EQ(panel.activity.text(), "Human - computer: your move");
    panel.session.seat(Seats::with_engine(Side::white));
    EXPECT_EQ(panel.activity.text(), "Human - computer: Searcher thinks");
    panel.engine.begin_load("fairymax", Protocol::autodetect);
    EXPECT_EQ(panel.activity.text(), "Loading fairymax...");
    panel.say("engine1name Fairy");
    panel.screen.select_mode(Mode::tournament);
    panel.say("whitename A");
    EXPECT_EQ(panel.activity.text(), "Tournament");
    panel.say("match_progress 3 4 1.5 - 0.5");
    EXPECT_EQ(panel.activity.text(), "Game 3 of 4: 1.5 - 0.5");
    panel.say("match_progress 15 2300 -");
    EXPECT_EQ(panel.activity.text(), "Game 15 of 2300");
}

TEST(Navigation, TakesUpTheGameThatWasLeft) {
    Panel panel(Mode::human_computer);
    for (const char* move : {"e2e4", "e7e5"}) {
        panel.session.play(panel.session.position().convert_to_move(move));
    }
    const auto end = panel.session.record().current();
    EXPECT_FALSE(panel.navigation.has_left_game());
    panel.navigation.to_start();
    EXPECT_EQ(panel.screen.mode(), Mode::human_human);
    ASSERT_TRUE(panel.navigation.has_left_game());
    panel.navigation.resume_game();
    EXPECT_EQ(panel.screen.mode(), Mode::human_computer);
    EXPECT_EQ(panel.session.record().current(), end);
    EXPECT_FALSE(panel.navigation.has_left_game());
    panel.navigation.back();
    panel.session.new_game();
    EXPECT_FALSE(panel.navigation.has_left_game());
}

}  // namespace
}  // namespace velmora
