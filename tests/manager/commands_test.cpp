#include <random>
#include <regex>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "referee.h"

namespace velmora {
namespace {

using test::Lines;
using test::Referee;

TEST(Commands, ALineOfAnotherSenderIsAFaultOfTheProgram) {
    test::Workplace workplace;
    test::RecordingWindow window;
    Manager manager(window, "velmora");
    try {
        manager.process_command_from_interface("1 quit");
        FAIL();
    } catch (const std::logic_error& error) {
        EXPECT_STREQ(error.what(), "Manager::process_command_from_interface: command not from interface");
    }
}

TEST(Commands, LoadTakesAnyProtocolNumberAndCutsBlanks) {
    for (const auto* protocol : {"0", "1", "7", "-1"}) {
        Referee referee;
        const auto program = referee.workplace.add_engine("alpha", "name Alpha\nplay");
        referee.say("load " + std::string(protocol) + " filename   " + program + "  ");
        EXPECT_EQ(referee.take_answers(), Lines({"engine1name Alpha"})) << protocol;
        EXPECT_TRUE(referee.manager().has_engine());
        EXPECT_EQ(referee.manager().get_enginevariables().engine_name, "Alpha");
    }
}

TEST(Commands, LoadOfAnXboardEngine) {
    Referee referee;
    const auto program = referee.workplace.add_engine("alpha", "name Xavier\nline e2e4 e7e5\nplay xboard");
    referee.say("load 3 filename " + program);
    referee.say("playother");
    referee.say("usermove e2e4");
    EXPECT_EQ(referee.take_until("shout"), Lines({"engine1name Xavier", "blackname Xavier", "whitename Human",
                                                  "move e7e5", "btime #", "shout"}));
}

TEST(Commands, AFailedLoadLeavesTheSeatEmpty) {
    Referee referee;
    referee.load("alpha", "play");
    referee.say("load 1 filename /no/such/program");
    EXPECT_EQ(referee.take_answers(), Lines({"engine1name ???", "telluser /no/such/program failed"}));
    EXPECT_FALSE(referee.manager().has_engine());
    EXPECT_THROW(referee.manager().get_enginevariables(), std::logic_error);
}

TEST(Commands, LoadByAnUnknownNameOrWordKeepsTheEngineAndStartsAGame) {
    Referee referee;
    referee.workplace.install_engine("Known", "name Alpha\nplay");
    referee.load("alpha", "name Alpha\nline e2e4\nplay");
    for (const auto* load : {"load 0 name Unknown", "load 0 name", "load 0 program Known"}) {
        referee.say("setboard 4k3/8/8/8/8/8/8/R3K3 b - - 0 1");
        referee.say(load);
        EXPECT_EQ(referee.take_answers(), Lines()) << load;
        referee.say("go");
        EXPECT_EQ(referee.take_until("shout"),
                  Lines({"whitename Alpha", "blackname Human", "move e2e4", "wtime #", "shout"}))
            << load;
        referee.say("human_human");
    }
}

TEST(Commands, LoadByNameAppliesWhatIsStored) {
    Referee referee;
    referee.workplace.install_engine("My Engine", "name Alpha\noption name Hash type spin default 16\nplay",
                                     "handicap 50\nelo 2100\nsetoption name Hash value 128\n");
    referee.say("level sudden_death 0 10 2");
    referee.say("load 0 name  My Engine ");
    EXPECT_EQ(referee.take_answers(), Lines({"engine1name Alpha"}));
    const auto variables = referee.manager().get_enginevariables();
    EXPECT_EQ(variables.player_name, "My Engine");
    EXPECT_EQ(variables.elo, "2100");
    EXPECT_EQ(variables.clock.time_left(), 300000);
    EXPECT_EQ(variables.options.at("Hash").value, "128");
}

TEST(Commands, LevelGoesToTheEngineAndItsClockToTheWindow) {
    Referee referee;
    referee.say("level sudden_death 0 3 0");
    EXPECT_EQ(referee.take_answers(), Lines());
    const auto program = referee.workplace.add_engine("alpha", "name Alpha\nplay");
    referee.say("load 1 filename " + program);
    referee.say("playother");
    referee.say("level sessions 40 5:30 0");
    EXPECT_EQ(referee.window().take_until("wtime 330000"), Lines({"engine1name Alpha", "wtime 330000"}));
    referee.say("usermove e2e4");
    referee.say("level fixed_depth 4");
    EXPECT_EQ(referee.take_until("btime #"), Lines({"blackname Alpha", "whitename Human", "btime #"}));
    ::testing::internal::CaptureStderr();
    referee.say("level bullet 1 0");
    EXPECT_EQ(referee.take_answers().back(), "telluser Error: Level::set(bullet)");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Level::set(bullet)\n");
}

TEST(Commands, SetoptionKeepsSingleBlanksInNamesAndValues) {
    Referee referee;
    referee.load("alpha",
                 "option name Hash type spin default 16\noption name Book File type text default b\nplay");
    const struct {
        const char* command;
        const char* hash;
        const char* book;
    } rows[] = {
        {"setoption name Hash value 32", "32", "b"},
        {"setoption name  Book  File  value  a  b ", "32", "a b"},
        {"setoption Hash value 64", "32", "a b"},
        {"setoption name value 64", "32", "a b"},
        {"setoption name Unknown value 64", "32", "a b"},
        {"setoption name Book File value", "32", ""},
        {"setoption name Hash", "", ""},
    };
    for (const auto& row : rows) {
        referee.say(row.command);
        EXPECT_EQ(referee.take_answers(), Lines()) << row.command;
        const auto options = referee.manager().get_enginevariables().options;
        EXPECT_EQ(options.at("Hash").value, row.hash) << row.command;
        EXPECT_EQ(options.at("Book File").value, row.book) << row.command;
    }
}

TEST(Commands, PonderIsPassedOnAndKeptForLaterEngines) {
    Referee referee;
    const std::string script = "name Alpha\nponder\nline e2e4 e7e5 g1f3 b8c6\nplay";
    referee.say("ponder on");
    referee.load("alpha", script);
    referee.say("go");
    referee.take_until("shout");
    referee.workplace.wait_for([&] { return referee.workplace.sent_to("alpha").ends_with(" ponder\n"); });
    referee.say("usermove e7e5");
    referee.take_until("shout");
    referee.workplace.wait_for(
        [&] { return referee.workplace.sent_to("alpha").find("ponderhit\n") != std::string::npos; });
    referee.say("human_human");
    referee.say("ponder off");
    referee.load("beta", script);
    referee.say("go");
    referee.take_until("shout");
    referee.say("usermove e7e5");
    referee.take_until("shout");
    EXPECT_EQ(referee.workplace.sent_to("beta").find("ponder"), std::string::npos);
}

TEST(Commands, DebugKeepsALogOfTheSession) {
    Referee referee;
    referee.load("alpha", "name Alpha\nline e2e4 e7e5\nplay");
    referee.say("playother");
    referee.say("debug true");
    referee.say("usermove e2e4");
    referee.take_until("shout");
    referee.say("debug false");
    referee.say("ponder off");
    referee.quit();
    std::mt19937_64 ids(12345);
    const std::string id = std::to_string(ids());
    std::string log = referee.workplace.read("manager.log");
    EXPECT_TRUE(std::regex_search(log, std::regex("^[0-9]{5}\\.[0-9]{3} interface")));
    for (const auto* noise : {"[0-9]{5}\\.[0-9]{3}(?= )", " TS=[0-9]+", " engine1 [^\n>]*\\(\\)[^\n]*\n",
                              " engine1 <- UciEngine[^\n]*\n", "[^\n]* readyok\n"}) {
        log = std::regex_replace(log, std::regex(noise), "");
    }
    EXPECT_EQ(log,
              " interface -> 0 usermove e2e4\n"
              " engine1 <- position rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq - 0 1\n"
              " engine1 -> 1 " +
                  id +
                  " bestmove e7e5\n"
                  " interface -> 0 debug false\n");
    EXPECT_NE(referee.workplace.read("engine1.log").find("engine <- go"), std::string::npos);
}

TEST(Commands, LinesOfAReplacedEngineAreDropped) {
    Referee referee;
    std::mt19937_64 ids(12345);
    const std::string first = "1 " + std::to_string(ids()) + " ";
    const std::string second = "1 " + std::to_string(ids()) + " ";
    referee.load("alpha", "play");
    referee.manager().put_command(first + "info string one");
    EXPECT_EQ(referee.take_answers(), Lines({"white_info string one"}));
    referee.load("alpha", "play");
    for (const auto* line : {"info string two", "bestmove e2e4", "resign"}) {
        referee.manager().put_command(first + line);
    }
    referee.manager().put_command(second + "info string three");
    referee.manager().put_command("2" + second.substr(1) + "info string four");
    EXPECT_EQ(referee.take_answers(), Lines({"white_info string three"}));
}

TEST(Commands, WordsWithoutAnEffect) {
    Referee referee;
    for (const auto* command :
         {"wake_up", "reset_tournament", "book /no/such/book.pgn", "polyglotbook /no/such.bin",
          "learnopenings 0", "learnopenings", "usermove", "setboard", "", "GO"}) {
        referee.say(command);
    }
    EXPECT_EQ(referee.quit(), Lines({"quit"}));
}

}  // namespace
}  // namespace velmora
