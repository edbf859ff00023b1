#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "base/text.h"
#include "chess/board/game_outcome.h"
#include "tests/referee_matches/archiving_window.h"
#include "tests/support/console_process.h"
#include "tests/support/workplace.h"

namespace velmora {
namespace {

using namespace std::string_literals;
using test::ConsoleProcess;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool memory_can_be_measured = false;  // the sanitizers keep what is freed
#else
constexpr bool memory_can_be_measured = true;
#endif

/// One game of the tournament below: who is White, against whom, from where.
struct QuickGame {
    const char *white, *black, *position, *result;
};

constexpr const char* start = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq -";
constexpr QuickGame won{"Alpha", "Beta", "5k2/8/4K3/8/8/8/8/Q7 w - -", "1-0"};
constexpr QuickGame lost{"Beta", "Alpha", "5K2/8/4k3/8/8/8/8/q7 b - -", "0-1"};
constexpr QuickGame drawn{"Alpha", "Beta", "4k2n/8/8/8/8/8/8/B3K3 w - -", "1/2-1/2"};
constexpr QuickGame dies{"Mortal", "Beta", start, "0-1"};
constexpr QuickGame falls_silent{"Mute", "Alpha", start, "0-1"};
constexpr QuickGame has_no_move{"Empty", "Beta", start, "0-1"};

/// Over and over.
constexpr QuickGame cycle[] = {won,          lost,  drawn, dies, won,   drawn,      has_no_move,
                               lost,         drawn, won,   lost, drawn, won,        dies,
                               falls_silent, drawn, lost,  won,  drawn, has_no_move};

constexpr QuickGame quick_game(int number) { return cycle[std::size_t(number - 1) % std::size(cycle)]; }

/// A tournament of games that end with their first move, or with an engine that fails at its second.
class QuickGames {
public:
    explicit QuickGames(int games) : m_games(games) {
        std::string book;
        for (int number = 1; number <= games; ++number) book += quick_game(number).position + "\n"s;
        place.write("book.epd", book);
        const std::string play = "line a1h8\nplay\n";
        const std::pair<const char*, std::string> scripts[] = {{"Alpha", play},
                                                               {"Beta", play},
                                                               {"Mortal", "at 2 die\n" + play},
                                                               {"Mute", "at 2 rest\n" + play},
                                                               {"Empty", "at 2 answer bestmove\n" + play}};
        for (const auto& [name, script] : scripts) {
            m_participants.emplace_back(name);
            place.install_engine(name, script);
        }
        place.write("tournaments/quick.trn", file(0));
    }

    /// The file with the results of the first games.
    std::string file(int played) const {
        // An increment below 0: who has moved once falls silent for five seconds at most.
        std::string text = "event Quick\nsite  ?\nlevel sudden_death 0 0 -15\ntype match\nrounds " +
                           std::to_string(m_games) +
                           "\nopeningbook book.epd\nbothcolors false\nrandomorder false\n"
                           "ignoretimeloss true\n";
        for (const auto& name : m_participants) text += "participant " + name + '\n';
        for (int number = 1; number <= m_games; ++number) {
            const QuickGame game = quick_game(number);
            char line[80];
            std::snprintf(line, sizeof line, "game %7d%7d    %d  -  %d     ", number, number,
                          place_of(game.white), place_of(game.black));
            text += line + (number <= played ? game.result : "*"s) + '\n';
        }
        return text;
    }

    const test::Workplace place;

private:
    /// From 1.
    int place_of(const std::string& name) const {
        return int(std::ranges::find(m_participants, name) - m_participants.begin()) + 1;
    }

    int m_games;
    std::vector<std::string> m_participants;
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
        expected += quick_game(number).result + " "s;
        expected_whites += quick_game(number).white + " "s;
    }
    while (const auto line = console.next_line()) {
        window.process(*line);
        const auto word = text::first_word(*line);
        if (result_of_token(word)) results.append(word) += ' ';
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
