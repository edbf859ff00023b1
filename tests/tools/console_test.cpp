#include "tools/velmora_console/console.h"

#include <algorithm>
#include <cstdio>
#include <string>
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

}  // namespace
}  // namespace velmora
