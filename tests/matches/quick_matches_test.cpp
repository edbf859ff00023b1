#include <cstdlib>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "tests/matches/archiving_window.h"
#include "tests/support/console_process.h"
#include "tests/support/workplace.h"

namespace velmora {
namespace {

using test::ConsoleProcess;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool memory_can_be_measured = false;  // the sanitizers keep what is freed
#else
constexpr bool memory_can_be_measured = true;
#endif

/// A tournament of games that end with their first move: won, lost and drawn in turn.
class QuickGames {
public:
    explicit QuickGames(int games) : m_games(games) {
        place.write("book.epd",
                    "5k2/8/4K3/8/8/8/8/Q7 w - -\n5K2/8/4k3/8/8/8/8/q7 b - -\n4k2n/8/8/8/8/8/8/B3K3 w - -\n");
        for (const auto* name : {"Alpha", "Beta"}) place.install_engine(name, "line a1h8\nplay\n");
        place.write("tournaments/quick.trn", file(0));
    }

    /// The file with the results of the first games.
    std::string file(int played) const {
        std::string text =
            "event Quick\nsite  ?\nlevel fixed_depth 1\ntype match\nrounds " + std::to_string(m_games) +
            "\nopeningbook book.epd\nbothcolors false\nrandomorder false\nignoretimeloss false\n"
            "participant Alpha\nparticipant Beta\n";
        for (int number = 1; number <= m_games; ++number) {
            char line[80];
            const bool alpha_is_white = number % 2 == 0;
            std::snprintf(line, sizeof line, "game %7d%7d    %d  -  %d     ", number, number,
                          alpha_is_white ? 1 : 2, alpha_is_white ? 2 : 1);
            text += line + (number <= played ? result(number) : "*") + '\n';
        }
        return text;
    }

    /// Past the book's end its last position is played.
    static std::string result(int number) { return number == 1 ? "1-0" : number == 2 ? "0-1" : "1/2-1/2"; }

    const test::Workplace place;

private:
    int m_games;
};

const std::string play_quick = "load_tournament quick\nstart_tournament\n";

/// VELMORA_MATCH_GAMES sets the number of games.
TEST(QuickMatches, ALongMatchLeavesNothingBehind) {
    const char* const wanted = std::getenv("VELMORA_MATCH_GAMES");
    const int games = wanted != nullptr ? std::atoi(wanted) : 20;
    const QuickGames match(games);
    ConsoleProcess console(play_quick);
    ConsoleProcess::Belongings early;
    ConsoleProcess::Belongings late;
    test::ArchivingWindow window;
    std::string results;
    std::string expected;
    std::string expected_whites;
    for (int number = 1; number <= games; ++number) {
        expected += QuickGames::result(number) + ' ';
        expected_whites += number % 2 == 0 ? "Alpha " : "Beta ";
    }
    while (const auto line = console.next_line()) {
        window.process(*line);
        if (test::is_result(*line)) results += line->substr(0, line->find(' ')) + ' ';
        // The engines of the game are loaded, those of the game before are reaped and their pipes closed
        // within moments.
        if (*line == "round 10") {
            match.place.wait_for([&] { return (early = console.belongings()).children <= 2; });
        }
        if (*line == "round " + std::to_string(games)) {
            match.place.wait_for([&] {
                late = console.belongings();
                return late.children <= 2 && late.descriptors <= early.descriptors;
            });
        }
    }
    EXPECT_EQ(console.finish(), 0);
    EXPECT_EQ(results, expected);
    EXPECT_EQ(match.place.read("tournaments/quick.trn"), match.file(games));
    EXPECT_EQ(test::ArchivingWindow::archived("Result"), expected);
    EXPECT_EQ(test::ArchivingWindow::archived("White"), expected_whites);
    EXPECT_EQ(test::ArchivingWindow::complaints(), "");
    EXPECT_EQ(late.children, 2U);
    EXPECT_EQ(late.bound_children, 0U);
    EXPECT_LE(late.descriptors, early.descriptors);
    EXPECT_EQ(late.threads, early.threads);
    if (memory_can_be_measured) {
        EXPECT_LT(late.resident_kb, early.resident_kb + 1024);
    }
    for (const auto& [number, sample] : {std::pair(10, &early), std::pair(games, &late)}) {
        std::printf("game %d: %ld KiB resident, %zu descriptors, %zu threads, %zu child processes\n", number,
                    sample->resident_kb, sample->descriptors, sample->threads, sample->children);
    }
}

TEST(QuickMatches, AKilledMatchIsTakenUpAgain) {
    const QuickGames match(8);
    {
        ConsoleProcess console(play_quick);
        for (int results = 0; results < 4;) {
            const auto line = console.next_line();
            ASSERT_TRUE(line.has_value());
            if (line->find(" {") != std::string::npos) ++results;
        }
        console.kill();
    }
    // The fourth game was on its way into the file.
    const std::string file = match.place.read("tournaments/quick.trn");
    EXPECT_TRUE(file == match.file(3) || file == match.file(4) || file == match.file(5)) << file;
    ConsoleProcess console(play_quick);
    EXPECT_EQ(console.remaining_lines().back(), "quit");
    EXPECT_EQ(match.place.read("tournaments/quick.trn"), match.file(8));
}

}  // namespace
}  // namespace velmora
