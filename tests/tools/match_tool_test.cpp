// velmora-match as a script calls it, with engines that do whatever engines do.

#include <csignal>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "engine/store/installed_engines.h"
#include "matches/match_state.h"
#include "tests/support/workplace.h"
#include "tournament/tournament.h"

namespace velmora {
namespace {

struct Said {
    std::string text;  // of standard output and standard error
    int status = 0;
};

class MatchTool : public testing::Test {
protected:
    Said run(const std::string& words) const {
        Said said;
        std::FILE* const out = ::popen(("2>&1 " VELMORA_MATCH " " + words).c_str(), "r");
        for (int c = std::fgetc(out); c != EOF; c = std::fgetc(out)) said.text += static_cast<char>(c);
        said.status = WEXITSTATUS(::pclose(out));
        return said;
    }

    /// The words of a match between "good" and an engine with the script.
    std::string against(const std::string& script, const std::string& keys = "tc=60") const {
        m_place.add_engine("good", "name Good\nplay\n");
        m_place.add_engine("other", script);
        return "-engine name=Good cmd=" + m_place.path("good.engine") +
               " tc=60 -engine name=Other cmd=" + m_place.path("other.engine") + ' ' + keys + ' ';
    }

    bool all_are_gone() const {
        return m_place.processes_of("good").empty() && m_place.processes_of("other").empty();
    }

    test::Workplace m_place;
};

// Fool's mate, so that results are known.
const std::string mating_line = "line f2f3 e7e5 g2g4 d8h4\n";

TEST_F(MatchTool, PrintsTheLinesThatScriptsLookForAndTheRecord) {
    const auto words =
        against(mating_line + "play xboard\n", "tc=60 proto=xboard -rounds 1 -pgnout games.pgn");
    m_place.add_engine("good", mating_line + "play\n");
    const auto said = run(words);
    EXPECT_EQ(said.text,
              "Started game 1 of 1 (Good vs Other)\n"
              "Finished game 1 (Good vs Other): 0-1 {Black mates}\n"
              "Score of Good vs Other: 0 - 1 - 0  [0.000] 1\n"
              "Elo difference: -inf +/- nan, LOS: nan %, DrawRatio: 0.0 %\n"
              "Normalized Elo: nan +/- nan\n"
              "Finished match\n");
    EXPECT_EQ(said.status, 0);
    const auto record = m_place.read("games.pgn");
    for (const char* part : {"[White \"Good\"]", "[Result \"0-1\"]", "[Termination \"normal\"]",
                             "[TimeControl \"60\"]", "[PlyCount \"4\"]", "Black mates} 0-1"}) {
        EXPECT_NE(record.find(part), std::string::npos) << part << record;
    }
    EXPECT_TRUE(all_are_gone());
}

TEST_F(MatchTool, ScoresWhatEnginesDoWrong) {
    struct Row {
        const char* script;
        const char* keys;
        const char* result;
    };
    constexpr Row rows[] = {
        {"at 2 die\nplay\n", "tc=60", "1-0 {Black disconnects}"},
        {"at 2 kill 11\nplay\n", "tc=60", "1-0 {Black disconnects}"},
        {"at 1 answer bestmove e2e5\nplay\n", "tc=60", "1-0 {Black makes an illegal move: e2e5}"},
        {"at 1 hang\nplay\n", "tc=0.2", "1-0 {Black's connection stalls}"},
        {"think 400\nplay\n", "st=0.1 timemargin=50", "1-0 {Black loses on time}"},
        {"at 1 flood 20000 info string %d\nplay\n", "tc=0.3", "1-0 {Black's connection stalls}"},
        {"at 1 answer resign\nplay xboard\n", "tc=60 proto=xboard", "1-0 {Black resigns}"},
        {"ignore quit\nplay\nhang\n", "tc=60 -maxmoves 1", "1/2-1/2 {Draw by adjudication}"},
    };
    for (const auto& row : rows) {
        const auto said = run(against(row.script, row.keys));
        EXPECT_NE(said.text.find("Finished game 1 (Good vs Other): " + std::string(row.result)),
                  std::string::npos)
            << row.script << said.text;
        EXPECT_TRUE(all_are_gone()) << row.script;
    }
}

TEST_F(MatchTool, RecoversAnEngineThatCrashes) {
    const auto words = against("at 1 die\nplay\n") + "-rounds 4 ";
    EXPECT_EQ(run(words).text.find("Started game 2 "), std::string::npos);
    const auto said = run(words + "-recover");
    EXPECT_NE(said.text.find("Score of Good vs Other: 4 - 0 - 0"), std::string::npos) << said.text;
    EXPECT_NE(said.text.find("Faults of Other: disconnected 4"), std::string::npos) << said.text;
}

TEST_F(MatchTool, NamesWhatIsWrongAheadOfAnyEngine) {
    const auto good = against("play\n");
    const std::vector<std::pair<std::string, std::string>> rows{
        {good + "-concurency 2", R"(no option "-concurency"; the nearest is "-concurrency")"},
        {good + "-sprt elo=0 elo1=5", R"(-sprt has no "elo"; the nearest is "elo0")"},
        {good + "-sprt elo0=5 elo1=0", "-sprt wants elo0 below elo1"},
        {good + "-rounds 0", "-rounds wants a whole number of at least 1, not \"0\""},
        {good + "-openings file=none.pgn", "no openings in none.pgn"},
        {"-engine cmd=a tc=x -engine cmd=b", "tc wants moves/time+increment or inf, not \"x\""},
        {"-engine cmd=a tc=1", "a match wants two engines or more"},
    };
    for (const auto& [words, text] : rows) {
        const auto said = run(words);
        EXPECT_NE(said.text.find(text), std::string::npos) << said.text;
        EXPECT_NE(said.status, 0);
        EXPECT_EQ(m_place.sent_to("good"), "") << words;
    }
}

/// The tool in the background.
class Running {
public:
    explicit Running(const std::string& words) : m_process(::fork()) {
        if (m_process != 0) return;
        ::execl("/bin/sh", "sh", "-c", ("exec " VELMORA_MATCH " " + words + " >out 2>&1").c_str(), nullptr);
        ::_exit(127);
    }
    int end_by(int signal) const {
        ::kill(m_process, signal);
        int status = 0;
        ::waitpid(m_process, &status, 0);
        return status;
    }

private:
    const pid_t m_process;
};

/// None of a state that isn't there yet, or of which nothing has been written.
std::size_t games_in(const std::string& path) {
    MatchState state;
    try {
        state.read(path);
    } catch (const std::runtime_error&) {
        return 0;
    }
    return state.games().size();
}

TEST_F(MatchTool, GoesOnAfterAnyEnd) {
    const auto words =
        against("think 3\nplay\n") +
        "-rounds 20 -games 2 -repeat -maxmoves 5 -concurrency 2 -config state -pgnout games.pgn";
    const auto has_games = [](int games) {
        test::Workplace::wait_for([=] { return games_in("state") >= std::size_t(games); });
    };
    {
        const Running match(words);
        has_games(4);
        match.end_by(SIGKILL);
    }
    test::Workplace::wait_for([this] { return all_are_gone(); });
    EXPECT_TRUE(all_are_gone());
    {
        const Running match("-resume state");
        has_games(12);
        const int status = match.end_by(SIGINT);
        EXPECT_EQ(WEXITSTATUS(status), 130);
        EXPECT_TRUE(all_are_gone());
        EXPECT_LT(games_in("state"), 40);
    }
    const auto said = run("-resume state");
    EXPECT_EQ(games_in("state"), 40);
    EXPECT_NE(said.text.find("Score of Good vs Other: 0 - 0 - 40  [0.500] 40"), std::string::npos)
        << said.text;
    EXPECT_EQ(run("-resume state").text.find("Started"), std::string::npos);
}

TEST_F(MatchTool, PlaysRealEnginesOfBothProtocols) {
    std::string words = "-each depth=2 -tournament gauntlet -games 2 -repeat -concurrency 2 -maxmoves 20";
    for (const char* engine :
         {"stockfish proto=uci", "toga2 proto=auto", "fairymax proto=xboard", "phalanx proto=xboard"}) {
        words += std::string(" -engine cmd=/usr/games/") + engine;
    }
    const auto said = run(words);
    std::size_t games = 0;
    for (auto at = said.text.find("Finished game"); at != std::string::npos;
         at = said.text.find("Finished game", at + 1)) {
        ++games;
    }
    EXPECT_EQ(games, 6) << said.text;
    EXPECT_EQ(said.text.find("Faults"), std::string::npos) << said.text;
}

TEST_F(MatchTool, GivesEnginesWhatTheyAreToHave) {
    m_place.install_engine("kept", "option name Style type string default calm\nplay\ncfg Style wild\n");
    m_place.add_engine("good",
                       "option name Hash type spin default 1 min 1 max 99\n"
                       "option name UCI_Chess960 type check default false\nplay\n");
    m_place.write("starts.epd", "bqnb1rkr/pp3ppp/3ppn2/2p5/5P2/P2P4/NPP1P1PP/BQ1BNRKR w HFhf - 0 1\n");
    const auto said =
        run("-engine conf=kept -engine name=Good dir=" + m_place.path("tournaments") +
            " cmd=" + m_place.path("good.engine") +
            " option.Hash=7 -each tc=10+0.5 -variant fischerandom -maxmoves 9 -log -use-affinity "
            "-openings file=starts.epd format=epd -epdout ends.epd -event Trial -pgnout games.pgn");
    EXPECT_NE(said.text.find("Finished game 1 (kept vs Good): 1/2-1/2 {Draw by adjudication}"),
              std::string::npos)
        << said.text;
    EXPECT_EQ(said.status, 0);
    const auto good = m_place.sent_to("good");
    for (const char* line : {"setoption name Hash value 7\n", "setoption name UCI_Chess960 value true\n",
                             "position fen bqnb1rkr/pp3ppp/3ppn2/2p5/5P2/P2P4/NPP1P1PP/BQ1BNRKR w HFhf - 0 1",
                             " winc 500 binc 500"}) {
        EXPECT_NE(good.find(line), std::string::npos) << line << good;
    }
    for (const char* text : {"[Event \"Trial\"]", "[Variant \"Chess960\"]", "[FEN \"bqnb1rkr/"}) {
        EXPECT_NE(m_place.read("games.pgn").find(text), std::string::npos) << m_place.read("games.pgn");
    }
    EXPECT_NE(m_place.read("ends.epd"), "");
}

TEST_F(MatchTool, EndsGamesThatAreDecided) {
    m_place.write("ends.epd", "6k1/8/8/8/8/8/1QR5/6K1 w - - 0 1\n8/8/4k3/8/8/3KP3/8/8 w - - 0 1\n");
    const auto play = [this](const std::string& words) {
        return run("-engine name=A cmd=/usr/games/stockfish -engine name=B cmd=/usr/games/stockfish "
                   "-each proto=uci depth=4 -openings file=ends.epd format=epd -games 2 -repeat " +
                   words)
            .text;
    };
    const auto resigned = play("-resign movecount=1 score=500");
    EXPECT_NE(resigned.find("Finished game 1 (A vs B): 1-0 {White wins by adjudication}"), std::string::npos)
        << resigned;
    EXPECT_NE(resigned.find("Finished game 2 (B vs A): 1-0 "), std::string::npos) << resigned;
    const auto drawn =
        play("-openings file=ends.epd format=epd start=2 -draw movenumber=1 movecount=1 score=2000");
    EXPECT_NE(drawn.find("Score of A vs B: 0 - 0 - 2"), std::string::npos) << drawn;
}

TEST_F(MatchTool, LeavesNoChildOfAnEngineBehind) {
    m_place.write(
        "mute.sh",
        "#!/bin/sh\nsleep 1000 &\necho $! >child\n"
        "while read word rest; do\n  case $word in uci) echo uciok ;; isready) echo readyok ;; esac\ndone\n");
    ::chmod(m_place.path("mute.sh").c_str(), 0755);
    m_place.add_engine("good", "play\n");
    const auto said = run("-engine name=Good cmd=" + m_place.path("good.engine") +
                          " -engine name=Mute cmd=" + m_place.path("mute.sh") + " -each proto=uci tc=0.3");
    EXPECT_NE(said.text.find("1-0 {Black's connection stalls}"), std::string::npos) << said.text;
    const int child = std::stoi(m_place.read("child"));
    test::Workplace::wait_for([=] { return ::kill(child, 0) != 0; });
    EXPECT_NE(::kill(child, 0), 0);
}

TEST_F(MatchTool, PlaysOnWhenTheRecordCantBeWritten) {
    const auto said = run(against("play\n") + "-rounds 2 -maxmoves 1 -pgnout /dev/full");
    EXPECT_NE(said.text.find("Score of Good vs Other: 0 - 0 - 2"), std::string::npos) << said.text;
    EXPECT_NE(said.text.find("game 1 is not in the record"), std::string::npos) << said.text;
    EXPECT_NE(said.text.find("game 2 is not in the record"), std::string::npos) << said.text;
    EXPECT_EQ(said.status, 1);
}

TEST_F(MatchTool, JoinsTheShardsOfAMatch) {
    const auto words = against("play\n") + "-rounds 3 -games 2 -repeat -maxmoves 1 ";
    for (const char* shard : {"1", "2"}) {
        run(words + "-config state" + shard + " --shard " + shard + "/2");
    }
    EXPECT_EQ(games_in("state1"), 4);
    EXPECT_EQ(games_in("state2"), 2);
    const auto said = run("merge state1 state2 state1");
    EXPECT_NE(said.text.find("DrawRatio: 100.0 %"), std::string::npos) << said.text;
}

TEST_F(MatchTool, ShowsAViewInPlaceOnATerminal) {
    const auto words = against("play\n") + "-rounds 2 -maxmoves 1 -sprt elo0=0 elo1=5";
    std::FILE* const out = ::popen(("script -qec '" VELMORA_MATCH " " + words + "' /dev/null").c_str(), "r");
    std::string shown;
    for (int c = std::fgetc(out); c != EOF; c = std::fgetc(out)) shown += static_cast<char>(c);
    EXPECT_EQ(::pclose(out), 0);
    for (const char* part :
         {"Games 2 of 2", "Good  ", " 2 games   50.0 %  +0 =2 -0  Elo +0.0", "SPRT -2.94 [####",
          "\033[5F\033[J", "Other - Good  1/2-1/2 {Draw by adjudication}"}) {
        EXPECT_NE(shown.find(part), std::string::npos) << part << '\n' << shown;
    }
    EXPECT_EQ(shown.find("Started game"), std::string::npos);
    // What stays is the result alone.
    EXPECT_GT(shown.find("Elo difference: 0.0"), shown.rfind("\033[J"));
}

TEST_F(MatchTool, PlaysATournamentOfTheWindow) {
    for (const char* name : {"Adam", "Eve", "Noah"}) m_place.install_engine(name, "play\n");
    const std::string directory = m_place.path("tournaments/");
    Tournament tournament(directory);
    InstalledEngines installed(m_place.path(""));
    installed.read_engines_cfg();
    for (const auto& [name, engine] : installed.engines()) {
        tournament.add_participant(participant_of(engine));
    }
    tournament.set_event("Cup");
    tournament.set_level(Level("sudden_death 0 1 0"));
    tournament.new_roundrobin(2);
    tournament.set_result("1-0");
    tournament.save();

    const auto said = run("-trn Cup -maxmoves 1 -concurrency 2");
    EXPECT_NE(said.text.find("Started game 2 of 4 "), std::string::npos) << said.text;
    EXPECT_EQ(said.text.find("Started game 1 of 4 "), std::string::npos) << said.text;
    Tournament played(directory);
    played.load("Cup");
    std::string results;
    for (const auto& game : played.games()) results += game.result + ' ';
    EXPECT_EQ(results, "1-0 1/2-1/2 1/2-1/2 1/2-1/2 ");
}

}  // namespace
}  // namespace velmora
