#include "tournament/pairings.h"

#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace velmora {
namespace {

/// Participants called "a", "b", "c", ...
std::vector<TournamentParticipant> letters(std::int32_t count) {
    TournamentData data;
    for (std::int32_t i = 0; i < count; ++i) {
        data.add_participant({0, std::string(1, static_cast<char>('a' + i)), 2000 + i, i});
    }
    return data.participants;
}

/// "<label>:<white><black>" for each game in turn.
std::string summary(const std::vector<TournamentGame>& games) {
    std::string text;
    std::int32_t number = 0;
    for (const auto& game : games) {
        EXPECT_EQ(game.number, ++number);
        EXPECT_EQ(game.result, "*");
        for (const auto& player : {game.white, game.black}) {
            EXPECT_EQ(player, letters(9).at(static_cast<std::size_t>(player.id - 1))) << "copied whole";
        }
        if (!text.empty()) text += ' ';
        text += game.round_label() + ":" + game.white.name + game.black.name;
    }
    return text;
}

TEST(Pairings, Schedules) {
    const struct {
        const char* name;
        std::vector<TournamentGame> (*pairing)(const std::vector<TournamentParticipant>&, std::int32_t);
        std::int32_t participants, rounds;
        const char* expected;
    } rows[] = {
        {"match of four", pairings::match, 2, 4, "1:ba 2:ab 3:ba 4:ab"},
        {"match of no round", pairings::match, 2, 0, "1:ba"},
        {"match above the limit", pairings::match, 2, 1'000'001, "1:ba 2:ab"},
        {"match of three takes two", pairings::match, 3, 1, "1:ba"},
        {"gauntlet", pairings::gauntlet, 3, 2, "1.1:ba 1.2:ab 2.1:ca 2.2:ac"},
        {"gauntlet above the limit", pairings::gauntlet, 2, 2'000'000, "1.1:ba 1.2:ab"},
        {"round robin of two", pairings::round_robin, 2, 3, "1.1:ba 2.1:ab 3.1:ba"},
        {"round robin of three: c and a meet only in the second cycle", pairings::round_robin, 3, 2,
         "1.1:cb 1.2:ba 2.1:ca 2.2:bc"},
        {"round robin of four, second cycle", pairings::round_robin, 4, 2,
         "1.1:ca 1.2:db 1.3:cd 1.4:ba 1.5:cb 1.6:ad 2.1:ac 2.2:bd 2.3:dc 2.4:ab 2.5:bc 2.6:da"},
        {"round robin of five", pairings::round_robin, 5, 1,
         "1.1:db 1.2:ec 1.3:ea 1.4:cb 1.5:cd 1.6:ba 1.7:be 1.8:ad"},
        {"round robin of no round", pairings::round_robin, 4, 0, ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(summary(row.pairing(letters(row.participants), row.rounds)), row.expected) << row.name;
    }
}

TEST(Pairings, TheLongestMatchCanBeMade) {
    const auto games = pairings::match(letters(2), 1'000'000);
    EXPECT_EQ(games.size(), 1'000'000U);
    EXPECT_EQ(games.back().round_label(), "1000000");
}

TEST(Pairings, AScheduleThatWouldFillTheMemoryIsRefused) {
    EXPECT_THROW(pairings::round_robin(letters(4), 2'000'000'000), std::length_error);
    EXPECT_THROW(pairings::gauntlet(letters(4), 1'000'000), std::length_error);
}

TEST(Pairings, AnEvenRoundRobinLetsAllMeetOnceACycle) {
    for (const std::int32_t count : {2, 4, 6, 8}) {
        for (std::int32_t cycles = 1; cycles <= 3; ++cycles) {
            std::vector<std::vector<int>> met(10, std::vector<int>(10));
            for (const auto& game : pairings::round_robin(letters(count), cycles)) {
                ++met.at(static_cast<std::size_t>(game.white.id)).at(static_cast<std::size_t>(game.black.id));
                ++met.at(static_cast<std::size_t>(game.black.id)).at(static_cast<std::size_t>(game.white.id));
            }
            for (std::size_t a = 1; a <= static_cast<std::size_t>(count); ++a) {
                for (std::size_t b = 1; b <= static_cast<std::size_t>(count); ++b) {
                    EXPECT_EQ(met[a][b], a == b ? 0 : cycles) << count << " players: " << a << " and " << b;
                }
            }
        }
    }
}

}  // namespace
}  // namespace velmora
