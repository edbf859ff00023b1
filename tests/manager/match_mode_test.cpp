#include <regex>
#include <string>

#include <gtest/gtest.h>

#include "referee.h"

namespace velmora {
namespace {

using test::Lines;
using test::Referee;

const std::string start_fen = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";
const std::string fools_mate = "line f2f3 e7e5 g2g4 d8h4\nplay\n";

/// The head of a tournament's file; later lines override earlier ones.
std::string tournament(const std::string& settings = "") {
    return "event Test Match\nsite  Here\nlevel fixed_depth 1\ntype match\nrounds 2\nbothcolors false\n"
           "randomorder false\nignoretimeloss false\n" +
           settings + "participant Alpha\nparticipant Beta\n";
}

std::string game(int number, int white, int black, const std::string& result) {
    return "game       " + std::to_string(number) + "      " + std::to_string(number) + "    " +
           std::to_string(white) + "  -  " + std::to_string(black) + "     " + result + "\n";
}

/// One game between two installed engines, Beta with White.
struct Match {
    explicit Match(const std::string& alpha, const std::string& beta, const std::string& settings = "",
                   const std::string& games = game(1, 2, 1, "*")) {
        referee.workplace.install_engine("Alpha", "name The Alpha\n" + alpha);
        referee.workplace.install_engine("Beta", "name The Beta\n" + beta);
        referee.workplace.write("tournaments/test.trn", tournament(settings) + games);
    }

    void start() {
        referee.say("load_tournament   test");
        referee.say("start_tournament");
    }

    /// Everything from the start of the games to the end of the tournament.
    Lines play() {
        start();
        return referee.take_until("tournament_finished");
    }

    /// What play() says between the first position and the end of the last game.
    Lines play_moves() {
        const Lines lines = play();
        const auto first = std::find_if(lines.begin(), lines.end(),
                                        [](const auto& line) { return line.starts_with("setboard "); });
        return Lines(std::next(first), std::prev(lines.end(), 2));
    }

    std::string file() const { return referee.workplace.read("tournaments/test.trn"); }
    /// The result of the first game in the file.
    std::string result() const {
        const std::string text = file();
        std::smatch match;
        return std::regex_search(text, match, std::regex("game +1 .* ([^ ]+)\n")) ? match[1].str() : "";
    }

    Referee referee;
};

Lines after_move(const std::string& move) { return {"move " + move, "emt #", "wtime #", "btime #"}; }

Lines joined(std::initializer_list<Lines> parts) {
    Lines all;
    for (const auto& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

TEST(MatchMode, PlaysTheScheduleAndSavesEachResult) {
    Match match(fools_mate, fools_mate, "", game(1, 2, 1, "*") + game(2, 1, 2, "*"));
    const auto opening = [](const std::string& white, const std::string& black, const std::string& round) {
        return Lines({"new", "engine1name The " + white, "engine2name The " + black, "whitename " + white,
                      "blackname " + black, "round " + round, "event Test Match", "site Here",
                      "level fixed_depth 1", "setboard " + start_fen});
    };
    const Lines moves = joined({after_move("f2f3"),
                                after_move("e7e5"),
                                after_move("g2g4"),
                                after_move("d8h4"),
                                {"0-1 {Black mates}"}});
    EXPECT_EQ(match.play(), joined({{"fixed_depth 1"},
                                    opening("Beta", "Alpha", "1"),
                                    moves,
                                    opening("Alpha", "Beta", "2"),
                                    moves,
                                    {"telluser tournament_finished", "tournament_finished"}}));
    EXPECT_EQ(match.file(), tournament() + game(1, 2, 1, "0-1") + game(2, 1, 2, "0-1"));
    // Started again it has nothing to play.
    match.referee.say("start_tournament");
    EXPECT_EQ(match.referee.take_until("tournament_finished"),
              Lines({"fixed_depth 1", "new", "telluser tournament_finished", "tournament_finished"}));
}

TEST(MatchMode, NamesElosAndClocksAreTheStoredOnes) {
    Match match("think 20\nline e2e4 e7e5\nat 2 answer resign\nplay\n", fools_mate,
                "level sudden_death 0 10 0\n");
    match.referee.workplace.write("engines.cfg", "");
    match.referee.workplace.install_engine("Alpha", "think 20\nline f2f3 e7e5\nat 2 answer resign\nplay\n",
                                           "elo 2600\nhandicap 50\n");
    match.referee.workplace.install_engine("Beta", "line f2f3 e7e5 g2g4\nplay\n", "elo 1200\n");
    match.start();
    const Lines lines = match.referee.window().take_until("tournament_finished");
    for (const auto* line : {"WhiteElo 1200", "BlackElo 2600", "btime 300000", "1-0 {black resigns}"}) {
        EXPECT_NE(std::find(lines.begin(), lines.end(), line), lines.end()) << line;
    }
}

TEST(MatchMode, EndsOfGames) {
    const struct {
        const char* name;
        const char* beta;   // White
        const char* alpha;  // Black
        Lines expected;
    } rows[] = {
        {"resignation", "at 1 answer resign\nplay", "play", {"0-1 {white resigns}"}},
        {"illegal move", "line e2e4\nplay", "at 1 answer bestmove e7e4\nplay",
         joined({after_move("e2e4"), {"1-0 {illegal move: e7e4}"}})},
        {"threefold repetition", "line g1f3 g8f6 f3g1 f6g8 g1f3 g8f6 f3g1 f6g8\nplay",
         "line g1f3 g8f6 f3g1 f6g8 g1f3 g8f6 f3g1 f6g8\nplay",
         joined({after_move("g1f3"),
                 after_move("g8f6"),
                 after_move("f3g1"),
                 after_move("f6g8"),
                 after_move("g1f3"),
                 after_move("g8f6"),
                 after_move("f3g1"),
                 after_move("f6g8"),
                 {"1/2-1/2 {Draw by threefold repetition}"}})},
    };
    for (const auto& row : rows) {
        Match match(row.alpha, row.beta);
        EXPECT_EQ(match.play_moves(), row.expected) << row.name;
        EXPECT_EQ(match.result(), row.expected.back().substr(0, row.expected.back().find(' '))) << row.name;
    }
}

TEST(MatchMode, EqualPiecesAreAdjudicated) {
    const std::string line = "line a1b1 a8b8 b1a1 b8a8 a1b1 a8b8 b1a1\nplay";
    Match match(line, line, "openingbook book.epd\n");
    match.referee.workplace.write("book.epd", "r7/4k3/8/8/8/4K3/8/R7 w - - id \"even\";\n");
    const Lines lines = match.play_moves();
    EXPECT_EQ(lines.back(), "1/2-1/2 {adjudicated}");
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(), [](const auto& l) { return l.starts_with("move "); }),
              6);
}

TEST(MatchMode, LossOnTime) {
    // A game of no time at all: what an engine thinks is what it oversteps.
    const std::string slow = "think 700\nline e2e4\nplay";
    const std::string hasty = "think 20\nline e2e4\nplay";
    const std::string resigns = "at 1 answer resign\nplay";
    const struct {
        const char* name;
        std::string beta;
        const char* settings;
        Lines expected;
    } rows[] = {
        {"forgiven", hasty, "level sudden_death 0 0 0\n",
         joined({after_move("e2e4"), {"1-0 {black resigns}"}})},
        {"lost", slow, "level sudden_death 0 0 0\n", {"move e2e4", "emt #", "0-1 {time}"}},
        {"ignored", slow, "level sudden_death 0 0 0\nignoretimeloss true\n",
         joined({after_move("e2e4"), {"1-0 {black resigns}"}})},
    };
    for (const auto& row : rows) {
        Match match(resigns, row.beta, row.settings);
        EXPECT_EQ(match.play_moves(), row.expected) << row.name;
    }
}

TEST(MatchMode, AnEngineThatIsFarOverItsTimeLosesAtTheNextLine) {
    const struct {
        const char* second_move;
        const char* expected;
    } rows[] = {{"die", "0-1 {engine failure}"}, {"wait 5000", "0-1 {time}"}};
    for (const auto& row : rows) {
        // 18.5 seconds over with its first move; what comes then is too much, though time losses are ignored.
        Match match("line e2e4 e7e5\nplay",
                    std::string("line e2e4 e7e5 g1f3\nat 2 ") + row.second_move + "\nplay",
                    "level sudden_death 0 0 -18.5\nignoretimeloss true\n");
        match.start();
        // Once nothing comes from the engine any more, any line lets the referee look.
        Lines lines = match.referee.take_until("move e7e5");
        ASSERT_EQ(lines.back(), "move e7e5") << ::testing::PrintToString(lines);
        match.referee.workplace.wait_for([&] {
            match.referee.say("wake_up");
            const Lines more = match.referee.window().take_all();
            lines.insert(lines.end(), more.begin(), more.end());
            return lines.back() == "tournament_finished";
        });
        EXPECT_EQ(lines[lines.size() - 3], row.expected);
        EXPECT_EQ(match.result(), "0-1") << row.second_move;
    }
}

TEST(MatchMode, TakesUpATournamentAtItsFirstOpenGame) {
    Match match(fools_mate, fools_mate, "",
                game(1, 2, 1, "1-0") + game(2, 1, 2, "*") + game(3, 2, 1, "1/2-1/2"));
    // A later game has its result, so the end shows only when the next one is looked for.
    const Lines lines = match.play_moves();
    EXPECT_EQ(Lines(lines.end() - 2, lines.end()), Lines({"0-1 {Black mates}", "new"}));
    EXPECT_EQ(match.file(),
              tournament() + game(1, 2, 1, "1-0") + game(2, 1, 2, "0-1") + game(3, 2, 1, "1/2-1/2"));
}

TEST(MatchMode, WhatCannotStart) {
    Referee referee;
    referee.say("start_tournament");
    EXPECT_EQ(referee.take_until("tournament_finished"),
              Lines({"telluser No_tournament_loaded", "tournament_finished"}));
    referee.workplace.write("tournaments/good.trn", tournament() + game(1, 2, 1, "*"));
    referee.workplace.write("tournaments/bad.trn", tournament() + "game 1 1 9 - 8 *\n");
    referee.say("load_tournament good");
    for (const auto* name : {"bad", "none"}) {
        referee.say("load_tournament " + std::string(name));
        referee.say("start_tournament");
        EXPECT_EQ(referee.take_until("tournament_finished"),
                  Lines({"telluser Tournament_doesn't_exist", "telluser No_tournament_loaded",
                         "tournament_finished"}))
            << name;
    }
    referee.say("load_tournament good");
    referee.say("start_tournament");
    EXPECT_EQ(referee.take_until("tournament_finished"),
              Lines({"fixed_depth 1", "new", "telluser Oops... loading Beta failed", "tournament_finished"}));
    referee.workplace.install_engine("Beta", fools_mate);
    referee.say("start_tournament");
    EXPECT_EQ(referee.take_until("tournament_finished"),
              Lines({"fixed_depth 1", "new", "engine1name Scripted Engine",
                     "telluser Oops... loading Alpha failed", "tournament_finished"}));
}

TEST(MatchMode, TheWindowsMovesAndNewGamesDoNotCount) {
    Match match(fools_mate, "think 300\nline f2f3 e7e5 g2g4\nplay");
    match.start();
    match.referee.take_until("setboard " + start_fen);
    for (const auto* command : {"new", "usermove e2e4", "level fixed_depth 2"}) match.referee.say(command);
    Lines lines = match.referee.take_until("0-1 {Black mates}");
    std::erase(lines, "wtime #");
    std::erase(lines, "btime #");
    std::erase(lines, "emt #");
    EXPECT_EQ(lines, Lines({"move f2f3", "move e7e5", "move g2g4", "move d8h4", "0-1 {Black mates}"}));
}

TEST(MatchMode, CommandsThatLeaveAMatch) {
    const struct {
        const char* command;
        bool window_is_told;
    } rows[] = {
        {"human_human", false},      {"setboard 4k3/8/8/8/8/8/8/R3K3 w - - 0 1", false},
        {"load 0 name Alpha", true}, {"load_tournament test", true},
        {"level none", true},
    };
    for (const auto& row : rows) {
        Match match("think 100000\nplay", "think 100000\nplay");
        match.start();
        match.referee.take_until("setboard " + start_fen);
        match.referee.say(row.command);
        Lines lines = match.referee.take_answers();
        EXPECT_EQ(std::count(lines.begin(), lines.end(), "tournament_finished"), row.window_is_told ? 1 : 0)
            << row.command;
        EXPECT_EQ(match.result(), "*") << row.command;
        // No answer of the stopped engines is scored, and the tournament can be taken up again.
        match.referee.workplace.write("Alpha.script", fools_mate);
        match.referee.workplace.write("Beta.script", fools_mate);
        EXPECT_EQ(match.play_moves().back(), "0-1 {Black mates}") << row.command;
    }
}

TEST(MatchMode, AResultThatCannotBeSavedIsToldAndTheGamesGoOn) {
    Match match(fools_mate, fools_mate, "", game(1, 2, 1, "*") + game(2, 1, 2, "*"));
    match.referee.say("load_tournament test");
    EXPECT_EQ(match.referee.take_answers(), Lines());
    std::filesystem::remove("tournaments/test.trn");
    std::filesystem::create_directories("tournaments/test.trn/in the way");
    match.referee.say("start_tournament");
    const Lines lines = match.referee.take_until("tournament_finished");
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "telluser Tournament_not_saved"), 2);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "0-1 {Black mates}"), 2);
}

}  // namespace
}  // namespace velmora
