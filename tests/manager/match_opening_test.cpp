#include "manager/match_opening.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "manager/match_score.h"
#include "referee.h"

namespace velmora {
namespace {

using test::Lines;

/// Five openings by their first move; the last begins from a position of its own.
const std::string pgn_book =
    "[Event \"1\"]\n\n1. a3 *\n\n[Event \"2\"]\n\n1. b3 b6 *\n\n[Event \"3\"]\n\n1. c3 *\n\n[Event "
    "\"4\"]\n\n1. d3 *\n\n"
    "[Event \"5\"]\n[SetUp \"1\"]\n[FEN \"4k3/8/8/8/8/8/8/R3K3 w Q - 0 1\"]\n\n1. O-O-O *\n";

struct Settings {
    bool random_order;
    bool both_colors;
};

/// What games 1 to `count` begin with.
Lines openings(GuiBook& book, Settings settings, int count) {
    Tournament tournament("./");
    tournament.set_random_order(settings.random_order);
    tournament.set_both_colors(settings.both_colors);
    Lines played;
    ChessPosition position;
    for (int number = 1; number <= count; ++number) {
        play_opening(book, position, tournament, number);
        played.push_back(position.moves_text());
    }
    return played;
}

TEST(MatchOpening, InTheOrderOfTheBook) {
    test::Workplace workplace;
    workplace.write("book.pgn", pgn_book);
    GuiBook book;
    book.set_path("book.pgn");
    EXPECT_EQ(openings(book, {.random_order = false, .both_colors = false}, 6),
              Lines({"a2a3", "b2b3 b7b6", "c2c3", "d2d3", "e1c1", ""}));
    EXPECT_EQ(openings(book, {.random_order = false, .both_colors = true}, 6),
              Lines({"a2a3", "a2a3", "b2b3 b7b6", "b2b3 b7b6", "c2c3", "c2c3"}));
}

TEST(MatchOpening, AtRandomInPairs) {
    test::Workplace workplace;
    workplace.write("book.pgn", pgn_book);
    GuiBook book;
    book.set_path("book.pgn");
    const Lines pairs = openings(book, {.random_order = true, .both_colors = true}, 200);
    for (std::size_t i = 0; i < pairs.size(); i += 2) EXPECT_EQ(pairs[i], pairs[i + 1]) << i;
    const Lines singles = openings(book, {.random_order = true, .both_colors = false}, 200);
    for (const auto& lines : {pairs, singles}) {
        for (const auto* opening : {"a2a3", "b2b3 b7b6", "c2c3", "d2d3", "e1c1"}) {
            EXPECT_NE(std::count(lines.begin(), lines.end(), opening), 0) << opening;
        }
    }
    std::size_t unpaired = 0;
    for (std::size_t i = 0; i < singles.size(); i += 2) unpaired += singles[i] != singles[i + 1] ? 1 : 0;
    EXPECT_GT(unpaired, 0U);
}

/// What the window is shown ahead of the first engine's move, and who moves first.
Lines first_lines(const std::string& book_name, const std::string& book, int round) {
    test::Referee referee;
    const auto& place = referee.workplace;
    place.write(book_name, book);
    for (const auto* name : {"Alpha", "Beta"}) place.install_engine(name, "at 1 answer resign\nplay\n");
    place.write("tournaments/test.trn",
                "event Test\nlevel fixed_depth 1\nopeningbook " + book_name + "\nrandomorder false\n" +
                    "participant Alpha\nparticipant Beta\ngame " + std::to_string(round) + " 1 2 - 1 *\n");
    referee.say("load_tournament test");
    referee.say("start_tournament");
    referee.take_until("level fixed_depth 1");
    Lines lines = referee.take_until("telluser tournament_finished");
    lines.pop_back();
    return lines;
}

TEST(MatchOpening, IsShownToTheWindow) {
    const struct {
        const char* name;
        const char* book_name;
        std::string book;
        int number;
        Lines expected;
    } rows[] = {
        {"black moves first", "book.pgn", pgn_book, 1, {"move a2a3", "1-0 {black resigns}"}},
        {"white moves first", "book.pgn", pgn_book, 2, {"move b2b3", "move b7b6", "0-1 {white resigns}"}},
        {"a game from a position of its own",
         "book.pgn",
         pgn_book,
         5,
         {"setboard 4k3/8/8/8/8/8/8/R3K3 w Q - 0 1", "move e1c1", "1-0 {black resigns}"}},
        {"a position, black to move",
         "book.epd",
         "4k3/8/8/8/8/8/8/R3K3 b Q - bm Kd7;\n",
         1,
         {"setboard 4k3/8/8/8/8/8/8/R3K3 b Q - 0 1", "1-0 {black resigns}"}},
        {"no such book",
         "book.txt",
         "",
         1,
         {"setboard rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1", "0-1 {white resigns}"}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(first_lines(row.book_name, row.book, row.number), row.expected) << row.name;
    }
}

/// The moves that the engines are told they have to their session's end, at the first go of each.
TEST(MatchOpening, ItsMovesCountInTheSessions) {
    const struct {
        const char* opening;
        const char* white;
        const char* black;
    } rows[] = {{"1. a3 a6 2. b3 b6", "  movestogo 38\n", "  movestogo 38\n"},
                {"1. a3 a6 2. b3", "  movestogo 38\n", "  movestogo 39\n"},
                {"", "  movestogo 40\n", "  movestogo 40\n"}};
    for (const auto& row : rows) {
        test::Referee referee;
        const auto& place = referee.workplace;
        const std::string game = "[Event \"1\"]\n\n" + std::string(row.opening) + " *\n";
        place.write("book.pgn", game);
        for (const auto* name : {"Alpha", "Beta"}) place.install_engine(name, "at 2 answer resign\nplay\n");
        place.write("tournaments/test.trn",
                    "event Test\nlevel sessions 40 5 0\nopeningbook book.pgn\nparticipant Alpha\n"
                    "participant Beta\ngame 1 1 1 - 2 *\n");
        referee.say("load_tournament test");
        referee.say("start_tournament");
        referee.take_until("tournament_finished");
        const auto first_go = [&place](const std::string& engine) {
            const std::string sent = place.sent_to(engine);
            const auto end = sent.find('\n', sent.find("  movestogo"));
            return sent.substr(sent.find("  movestogo"), end + 1 - sent.find("  movestogo"));
        };
        EXPECT_EQ(first_go("Alpha"), row.white) << row.opening;
        EXPECT_EQ(first_go("Beta"), row.black) << row.opening;
    }
}

TEST(MatchScore, CountsBySeat) {
    MatchScore score;
    score.add("1-0", true);
    score.add("0-1", false);
    score.add("0-1", true);
    score.add("1/2-1/2", true);
    score.add("*", true);
    EXPECT_EQ(score, (MatchScore{.wins_first = 2, .wins_second = 1, .draws = 1}));
}

}  // namespace
}  // namespace velmora
