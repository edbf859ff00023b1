#include "manager/manager.h"

#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "manager/match_opening.h"
#include "tests/manager/referee.h"
#include "tests/support/thrown_text.h"

namespace velmora {
namespace {

using test::Lines;

/// A referee whose first engine is loaded, so that an "info" line put on its queue comes out again.
struct EchoingReferee {
    EchoingReferee() {
        referee.say("load 1 filename " + referee.workplace.add_engine("alpha", "name Alpha\nplay\n"));
        EXPECT_EQ(referee.next_line(), "engine1name Alpha");
    }

    /// Puts a line of the engine on the queue.
    void put(const std::string& line) { referee.manager().put_command("1 " + id + " " + line); }

    /// Has the referee held up by the window.
    void hold() {
        referee.window().hold_at("white_info stop here");
        put("info stop here");
        referee.manager().flush();
        EXPECT_EQ(referee.next_line(), "white_info stop here");
    }

    void release() { referee.window().hold_at({}); }

    test::Referee referee;
    const std::string id = std::to_string(std::mt19937_64(12345)());
};

TEST(Manager, ACrowdedQueueDropsSearchLinesAndMovesThatNobodyAwaits) {
    EchoingReferee echo;
    echo.hold();
    echo.referee.say("start_tournament");
    for (std::size_t i = 1; i <= 2 * LineQueue::crowded_at; ++i) {
        echo.put("info " + std::to_string(i));
        echo.put("bestmove e2e4");
    }
    echo.referee.say("start_tournament");
    echo.release();
    const Lines answer = {"telluser No_tournament_loaded", "tournament_finished"};
    EXPECT_EQ(echo.referee.take_until(answer.back()), answer);
    const Lines lines = echo.referee.take_until(answer.back());
    // Ten thousand lines wait at most, those that may not go among them: a hundred moves, two commands.
    constexpr auto infos = LineQueue::crowded_at - LineQueue::account_limit - 2;
    ASSERT_EQ(lines.size(), infos + answer.size());
    EXPECT_EQ(lines[infos - 1], "white_info 20000");
    EXPECT_EQ(Lines(lines.end() - 2, lines.end()), answer);
}

TEST(Manager, TheEndOfAGameLosesAllWaitingLinesButQuit) {
    EchoingReferee echo;
    echo.referee.say("setboard 7k/8/5KQ1/8/8/8/8/8 w - - 0 1");
    echo.referee.say("playother");
    echo.referee.window().hold_at("whitename Human");
    echo.referee.say("usermove g6g7");
    EXPECT_EQ(echo.referee.take_until("whitename Human").size(), 2U);
    echo.put("info lost");
    echo.referee.say("start_tournament");
    echo.referee.say("quit");
    echo.release();
    EXPECT_EQ(echo.referee.take_until("quit"),
              Lines({"1-0 {White mates}", "round ?", "telluser result: 1-0", "quit"}));
    EXPECT_EQ(echo.referee.window().taken(), 6U)
        << "a lost line counts, or all later ones would seem to cross";
}

TEST(Manager, QuitOvertakesWhatWaitsAndCutsShortWhatTheRefereeWaitsFor) {
    // A probe that looks for its answer once an hour.
    test::Referee referee(std::chrono::hours(1));
    const auto program = referee.workplace.add_engine("silent", "rest\n");
    referee.say("load 1 filename " + program);
    referee.workplace.wait_for([&] { return !referee.workplace.processes_of("silent").empty(); });
    for (int i = 0; i < 1000; ++i) referee.say("start_tournament");
    referee.say("quit");
    EXPECT_EQ(referee.take_until("quit").back(), "quit");
    EXPECT_LE(referee.window().taken(), 2U);
}

TEST(Manager, PublishesWhatIsKnownOfTheFirstEngine) {
    test::Referee referee;
    EXPECT_FALSE(referee.manager().has_engine());
    EXPECT_THROW(referee.manager().get_enginevariables(), std::logic_error);
    referee.workplace.install_engine("My Engine",
                                     "name Alpha\noption name Hash type spin default 16\n"
                                     "option name Book File type string default b\nplay\n"
                                     "cfg elo 2100\ncfg setoption name Hash value 128\n");
    referee.say("load 0 name  My Engine ");
    EXPECT_EQ(referee.next_line(), "engine1name Alpha");
    referee.workplace.wait_for(
        [&] { return referee.manager().get_enginevariables().options["Hash"].value == "128"; });
    const auto variables = referee.manager().get_enginevariables();
    EXPECT_EQ(variables.player_name, "My Engine");
    EXPECT_EQ(variables.elo, "2100");

    const struct {
        const char *command, *hash, *book;
    } rows[] = {
        {"setoption name Hash value 32", "32", "b"},
        {"setoption name  Book  File  value  a  b ", "32", "a b"},
        {"setoption name Unknown value 64", "32", "a b"},
        {"setoption name Book File value", "32", ""},
        {"setoption name Hash", "", ""},
        {"load 1 filename /no/such/program", nullptr, nullptr},
    };
    for (const auto& row : rows) {
        referee.say(row.command);
        referee.say("start_tournament");
        referee.take_until("tournament_finished");
        ASSERT_EQ(referee.manager().has_engine(), row.hash != nullptr);
        if (row.hash == nullptr) break;
        const auto options = referee.manager().get_enginevariables().options;
        EXPECT_EQ(options.at("Hash").value, row.hash) << row.command;
        EXPECT_EQ(options.at("Book File").value, row.book) << row.command;
    }
}

TEST(Manager, ALineOfAnotherSenderIsAFaultOfTheProgram) {
    test::Workplace workplace;
    test::RecordingWindow window;
    Manager manager(window, "velmora");
    EXPECT_EQ(test::thrown_text([&] { manager.process_command_from_interface("1 quit"); }),
              "Manager::process_command_from_interface: command not from interface");
}

/// What games 1 to 200 of a tournament with a book of three begin with.
Lines random_openings(bool both_colors) {
    test::Workplace workplace;
    workplace.write("book.pgn",
                    "[Event \"1\"]\n\n1. a3 *\n\n[Event \"2\"]\n\n1. b3 *\n\n[Event \"3\"]\n\n1. c3 *\n");
    GuiBook book;
    book.set_path("book.pgn");
    Tournament tournament("./");
    tournament.set_random_order(true);
    tournament.set_both_colors(both_colors);
    Lines played;
    ChessPosition position;
    for (int number = 1; number <= 200; ++number) {
        play_opening(book, position, tournament, number);
        played.push_back(position.moves_text());
    }
    return played;
}

TEST(MatchOpening, IsDrawnAtRandomOnceForBothColours) {
    for (const bool both_colors : {true, false}) {
        const Lines openings = random_openings(both_colors);
        EXPECT_EQ(std::set(openings.begin(), openings.end()),
                  (std::set<std::string>{"a2a3", "b2b3", "c2c3"}));
        std::size_t pairs = 0;
        for (std::size_t i = 0; i < openings.size(); i += 2) pairs += openings[i] == openings[i + 1] ? 1 : 0;
        EXPECT_EQ(pairs == openings.size() / 2, both_colors);
    }
}

TEST(DeathCount, ThreeWithinAMinuteAreTooMany) {
    DeathCount deaths;
    std::string verdicts;
    for (const int second : {0, 50, 61, 111, 120}) {
        verdicts += deaths.add(DeathCount::TimePoint(std::chrono::seconds(second))) ? '!' : '.';
    }
    EXPECT_EQ(verdicts, "....!");
}

}  // namespace
}  // namespace velmora
