// From a typed filter to the games that it leaves.

#include <string>

#include <gtest/gtest.h>

#include "collection/filter_line.h"
#include "collection/game_query.h"
#include "tests/collection/collection_fixture.h"

namespace velmora {
namespace {

std::string game(const std::string& white, const std::string& black, const std::string& tags,
                 const std::string& moves) {
    return "[Event \"Open\"]\n[White \"" + white + "\"]\n[Black \"" + black + "\"]\n" + tags + "\n" + moves +
           "\n\n";
}

const std::string games =
    game("Carlsen, Magnus", "Anand, V",
         "[WhiteElo \"2850\"]\n[BlackElo \"2780\"]\n[Date \"2013.11.09\"]\n[Round \"10\"]\n[ECO "
         "\"B90\"]\n[Site \"Wijk aan Zee\"]\n",
         "1. e4 c5 2. Nf3 1-0") +
    game("Anand, V", "Carlsen, Magnus",
         "[WhiteElo \"2780\"]\n[Date \"2013.??.??\"]\n[Round \"2\"]\n[ECO \"B99\"]\n", "1. d4 d5 1/2-1/2") +
    game("M\xC3\x9CLLER", "anand",
         "[BlackElo \"2400\"]\n[WhiteElo \"2400\"]\n[Date \"1999.01.01\"]\n[Round \"1\"]\n",
         "1. Nf3 c5 2. e4 0-1") +
    game("", "", "[ECO \"D30\"]\n", "*");

TEST(FilterLine, LeavesTheGamesThatItNames) {
    struct Row {
        std::string filter;
        std::string numbers;
    };
    const Row rows[] = {
        {"", "0 1 2 3 "},
        {"anand", "0 1 2 "},
        {"ANAND carlsen", "0 1 "},
        {"white:anand", "1 "},
        {"black:anand", "0 2 "},
        {"m\xC3\xBCller", "2 "},
        {"\"wijk aan\"", "0 "},
        {"site:zee", "0 "},
        {"open", "0 1 2 3 "},
        {"sicilian", "0 2 "},
        {"opening:queen's", "1 "},
        {"round:1", "0 2 "},
        {"elo>2400", "0 "},
        {"elo>=2400", "0 2 "},
        {"elo:2300-2500", "2 "},
        {"elo<3000", "0 2 "},
        {"year:2013", "0 1 "},
        {"year<=1999", "2 "},
        {"year:1999-2012", "2 "},
        {"eco:B90-B99", "0 1 "},
        {"eco:b9", "0 1 "},
        {"eco:D", "3 "},
        {"eco<=B90", "0 2 "},
        {"eco>B90", "1 3 "},
        {"result:1-0", "0 "},
        {"result:1/2", "1 "},
        {"result:*", "3 "},
        {"moves<2", "1 3 "},
        {"moves=2 elo>2500", "0 "},
        {"nobody", ""},
        {"white:\"anand, v\"", "1 "},
        {"colour:red year:2013", "0 1 "},
    };
    const test::Collection collection(games);
    const auto index = collection.open();
    for (const auto& row : rows) {
        GameQuery query(index);
        query.set_filter(FilterLine::parse(row.filter));
        std::string numbers;
        for (const auto number : query.games()) numbers += std::to_string(number) + ' ';
        EXPECT_EQ(numbers, row.numbers) << row.filter;
    }
}

TEST(FilterLine, TellsWhereItIsMistaken) {
    struct Row {
        std::string filter;
        std::string marked;
        std::string hint;  // its first word
        std::size_t terms;
    };
    const Row rows[] = {
        {"anand elo>high", "elo>high", "elo", 1},
        {"year:", "year:", "year", 0},
        {"year:2020-2010 x", "year:2020-2010", "year", 1},
        {"eco:F10", "eco:F10", "eco", 0},
        {"result>1-0", "result>1-0", "result", 0},
        {"result:2-0", "result:2-0", "result", 0},
        {"a white:", "white:", "white", 1},
        {"moves<0", "moves<0", "moves", 0},
        {"white<a", "white<a", "white", 0},
        {"foo:\"a b\" c", "foo:\"a b\"", "no", 1},
        {"elo>4294967295", "elo>4294967295", "elo", 0},
    };
    for (const auto& row : rows) {
        const auto filter = FilterLine::parse(row.filter);
        ASSERT_EQ(filter.mistakes.size(), 1U) << row.filter;
        const auto& mistake = filter.mistakes.front();
        EXPECT_EQ(row.filter.substr(mistake.position, mistake.length), row.marked);
        EXPECT_TRUE(mistake.hint.starts_with(row.hint + " ")) << mistake.hint;
        EXPECT_EQ(filter.terms.size(), row.terms) << row.filter;
    }
}

TEST(GameQuery, SortsAndFollowsThePositionAndTheFile) {
    using Direction = GameQuery::Direction;
    const test::Collection collection(games);
    auto index = collection.open();
    GameQuery query(index);
    const auto numbers = [&query] { return std::vector(query.games()); };
    using Numbers = std::vector<std::uint32_t>;

    struct Row {
        GameOrder order;
        Numbers ascending;
        Numbers descending;
    };
    const Row rows[] = {
        {GameOrder::white, {3, 1, 0, 2}, {2, 0, 1, 3}}, {GameOrder::black, {3, 2, 0, 1}, {1, 0, 2, 3}},
        {GameOrder::round, {3, 2, 1, 0}, {0, 1, 2, 3}}, {GameOrder::date, {3, 2, 1, 0}, {0, 1, 2, 3}},
        {GameOrder::event, {0, 1, 2, 3}, {0, 1, 2, 3}}, {GameOrder::white_elo, {3, 2, 1, 0}, {0, 1, 2, 3}},
        {GameOrder::moves, {3, 1, 0, 2}, {0, 2, 1, 3}}, {GameOrder::number, {0, 1, 2, 3}, {3, 2, 1, 0}},
    };
    for (const auto& row : rows) {
        query.set_order(row.order, Direction::ascending);
        EXPECT_EQ(numbers(), row.ascending) << static_cast<int>(row.order);
        query.set_order(row.order, Direction::descending);
        EXPECT_EQ(numbers(), row.descending) << static_cast<int>(row.order);
    }
    query.set_position(test::after("e4 c5 Nf3"));
    EXPECT_EQ(numbers(), Numbers({2, 0})) << "descending, by transposition, too";
    query.set_filter(FilterLine::parse("carlsen"));
    EXPECT_EQ(numbers(), Numbers({0}));
    collection.append(game("carlsen", "x", "", "1. e4 c5 2. Nf3 d6 *"));
    ASSERT_TRUE(index.refresh());
    EXPECT_EQ(numbers(), Numbers({4, 0}));
    query.set_position(std::nullopt);
    EXPECT_EQ(numbers(), Numbers({4, 1, 0}));
}

}  // namespace
}  // namespace velmora
