#include "tools/velmora_console/console.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/console_process.h"
#include "tests/support/recording_sink.h"
#include "tests/support/workplace.h"

namespace velmora {
namespace {

using Lines = std::vector<std::string>;

/// A console between a recording referee and a file.
struct Bench {
    Bench() { console.set_referee(referee); }
    ~Bench() { std::fclose(out); }

    /// What has left the buffer.
    std::string printed() const {
        std::string text(4096, '\0');
        text.resize(static_cast<std::size_t>(pread(fileno(out), text.data(), text.size(), 0)));
        return text;
    }

    std::FILE* const out = std::tmpfile();
    int left = 0;
    test::RecordingSink referee;
    Console console{out, [this] { ++left; }};
};

TEST(Console, CutsTheInputIntoCommands) {
    Bench bench;
    for (const auto* bytes : {"deb", "ug true\nlevel fixed", "_depth 3\r\n\nponder on\ngo"}) {
        bench.console.take_input(bytes);
    }
    EXPECT_EQ(bench.referee.take(), Lines({"0 debug true", "0 level fixed_depth 3", "0 ", "0 ponder on"}));
    bench.console.end_input();
    EXPECT_EQ(bench.referee.take(), Lines({"0 go", "0 wake_up"}));
    bench.console.acknowledge(5);
    EXPECT_EQ(bench.referee.take(), Lines()) << "all that was said is done first";
    bench.console.acknowledge(6);
    EXPECT_EQ(bench.referee.take(), Lines({"0 quit"}));
}

TEST(Console, PrintsWhatTheRefereeSays) {
    Bench bench;
    bench.console.put_command("move e2e4");
    EXPECT_EQ(bench.left, 0);
    bench.console.put_command("quit");
    EXPECT_EQ(bench.printed(), "") << "lines travel together";
    bench.console.flush();
    EXPECT_EQ(bench.printed(), "move e2e4\nquit\n");
    EXPECT_EQ(bench.left, 1);
}

TEST(Console, WaitsForARunningMatchAtTheEndOfTheInput) {
    const struct {
        const char *name, *input;
        Lines said_after_end;
        int quits_at_end, quits_then;
        bool wakes_at_end, wakes_then;
    } rows[] = {
        {"match", "start_tournament\n", {"move e2e4", "1-0 {White mates}"}, 0, 0, true, true},
        {"match over", "start_tournament", {"tournament_finished", "quit"}, 0, 1, true, false},
        {"match left", "start_tournament\nhuman_human\n", {}, 1, 1, false, false},
        {"match after play", "go\nstart_tournament\n", {"move e2e4"}, 0, 0, true, true},
        {"the engine's move", "go\n", {"move e2e4"}, 1, 1, true, false},
        {"the person's move", "usermove e2e4", {"0-1 {Black mates}"}, 1, 1, true, false},
        {"analysis", "analyzeposition", {"white_info depth 1"}, 1, 1, true, true},
    };
    for (const auto& row : rows) {
        Bench bench;
        const auto quits = [&] {
            const auto lines = bench.referee.lines();
            return static_cast<int>(std::count(lines.begin(), lines.end(), "0 quit"));
        };
        const auto wakes = [&] {
            const auto before = bench.referee.count();
            bench.console.wake_up();
            const bool woken = bench.referee.count() > before;
            bench.console.acknowledge(bench.referee.count());
            return woken;
        };
        bench.console.take_input(row.input);
        bench.console.end_input();
        EXPECT_EQ(wakes(), row.wakes_at_end) << row.name;
        EXPECT_EQ(quits(), row.quits_at_end) << row.name;
        for (const auto& line : row.said_after_end) bench.console.put_command(line);
        EXPECT_EQ(wakes(), row.wakes_then) << row.name;
        EXPECT_EQ(quits(), row.quits_then) << row.name;
    }
}

TEST(ConsoleProgram, EndsWithTheInputOrAQuit) {
    const test::Workplace place;
    for (const auto& [input, count] :
         {std::pair("", 1U), std::pair("quit\n", 1U), std::pair("start_tournament", 3U),
          std::pair("learnopenings 3", 3U), std::pair("wake_up\nquit\nlearnopenings 3\n", 1U)}) {
        test::ConsoleProcess console(input);
        const Lines lines = console.remaining_lines();
        EXPECT_EQ(lines.back(), "quit") << input;
        EXPECT_EQ(lines.size(), count) << input;
        EXPECT_EQ(console.finish(), 0) << input;
    }
}

/// What a command prints on standard output, and behind it its exit status.
std::string run(const std::string& command) {
    std::string text;
    std::FILE* const pipe = popen(command.c_str(), "r");
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) text += static_cast<char>(c);
    return text + "exit " + std::to_string(WEXITSTATUS(pclose(pipe)));
}

/// Every game comes out, in its order: judged, judged up to a move that is none, and one without moves.
TEST(ConsoleReview, WritesAllGamesOfAFileWithWhatTheEngineFound) {
    const std::string stockfish = "/usr/games/stockfish";
    if (!std::filesystem::exists(stockfish)) GTEST_SKIP() << "stockfish is not installed";
    test::Workplace place;
    std::ofstream("games.pgn") << "[White \"A\"]\n[Result \"0-1\"]\n\n1.f3 e5 2.g4 Qh4# 0-1\n\n"
                                  "[White \"B\"]\n[Result \"*\"]\n\n1.e4 Qx9 2.d4 *\n\n"
                                  "[White \"C\"]\n[Result \"*\"]\n\n*\n";
    const std::string program = VELMORA_CONSOLE;
    const std::string said =
        run(program + " --review games.pgn --depth 5 --engine " + stockfish + " 2>messages.txt");
    std::vector<std::size_t> places;
    for (const auto* part : {"\"A\"", "Review by Stockfish", "2.g4 $4 {[%eval #-1]", "Qh4# 0-1", "\"B\"",
                             "1.e4 {", "[%eval ", "Qx9 d4", "\"C\"", "exit 0"}) {
        places.push_back(said.find(part, places.empty() ? 0 : places.back()));
        EXPECT_NE(places.back(), std::string::npos) << part << "\n" << said;
    }
    EXPECT_NE(run("cat messages.txt").find("velmora-console: game 2, line "), std::string::npos);

    EXPECT_EQ(run(program + " --review none.pgn --engine " + stockfish + " 2>&1"),
              "velmora-console: none.pgn can't be read\nexit 1");
    EXPECT_EQ(run(program + " --review games.pgn --engine nobody 2>&1"),
              "velmora-console: there is neither a program nor an installed engine \"nobody\"\nexit 1");
    for (const auto* wrong : {"--review games.pgn", "--depth 0", "--depht 3", "--side red", "--review"}) {
        EXPECT_TRUE(run(program + " " + wrong + " 2>/dev/null").ends_with("exit 2")) << wrong;
    }
}

/// The game under way is written with what has been judged, and those behind it aren't.
TEST(ConsoleReview, EndsAtAnInterruptionWithWhatIsDone) {
    const std::string stockfish = "/usr/games/stockfish";
    if (!std::filesystem::exists(stockfish)) GTEST_SKIP() << "stockfish is not installed";
    test::Workplace place;
    // The game without moves is written when the engine is there, and the next one is under way then.
    std::ofstream("games.pgn") << "[Result \"*\"]\n\n*\n\n[Result \"*\"]\n\n1.f3 e5 2.g4 *\n\n"
                                  "[Result \"*\"]\n\n1.a3 e5 *\n";
    const std::string said =
        run(std::string(VELMORA_CONSOLE) + " --review games.pgn --movetime 600000 --engine " + stockfish +
            " >out.pgn 2>messages.txt & until [ -s out.pgn ]; do sleep 0.05; done; "
            "kill -INT $!; wait $!; status=$?; cat out.pgn; exit $status");
    EXPECT_NE(said.find("1.f3 e5 2.g4"), std::string::npos) << said;
    EXPECT_EQ(said.find("1.a3"), std::string::npos) << said;
    EXPECT_TRUE(said.ends_with("exit 1")) << said;
}

}  // namespace
}  // namespace velmora
