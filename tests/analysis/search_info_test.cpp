#include "analysis/search_info.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "analysis/evaluation.h"
#include "analysis/game_evaluations.h"
#include "analysis/san_line.h"
#include "analysis/search_lines.h"
#include "game/game.h"

namespace velmora {
namespace {

TEST(Evaluation, IsWhitesViewWhoeverSpeaks) {
    const struct {
        Evaluation evaluation;
        std::string text;
        double expected;
    } rows[] = {
        {Evaluation::of_centipawns(35, Side::white), "+0.35", 0.5322},
        {Evaluation::of_centipawns(35, Side::black), "-0.35", 0.4678},
        {Evaluation::of_centipawns(-1205, Side::black), "+12.05", 0.9883},
        {Evaluation::of_centipawns(0, Side::black), "0.00", 0.5},
        {Evaluation::of_centipawns(-2147483647 - 1, Side::black), "+10000.00", 1},
        {Evaluation::of_centipawns(20, Side::black, Bound::lower), "≤-0.20", 0.4816},
        {Evaluation::of_mate(5, Side::white), "#5", 1},
        {Evaluation::of_mate(3, Side::black), "-#3", 0},
        {Evaluation::of_mate(-3, Side::black), "#3", 1},
        {Evaluation::of_mate(0, Side::white), "-#0", 0},
        {Evaluation::of_mate(0, Side::black), "#0", 1},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.evaluation.text(), row.text);
        EXPECT_NEAR(row.evaluation.expected_score(), row.expected, 0.0001) << row.text;
    }
}

TEST(Evaluation, IsReadFromComments) {
    const struct {
        const char *comment, *text;
    } rows[] = {
        {"[%eval 0.17] [%clk 0:05:00]", "+0.17"},
        {"[%eval +1]", "+1.00"},
        {"[%eval -12.345]", "-12.35"},
        {"[%eval #5]", "#5"},
        {"[%eval #-3]", "-#3"},
        {"[%eval -#3]", "-#3"},
        {"[%eval mate -3]", "-#3"},
        {"[%eval 0.35,20]", "+0.35"},
        {"[%eval 1][%eval 2]", "+2.00"},
        {"[%eval x]", ""},
        {"[%eval 1", ""},
        {"[%eval #]", ""},
        {"[%eval 1e999]", ""},
        {"[%eval +-3]", ""},
        {"[%eval -#-3]", ""},
        {"[%eval 1 2]", ""},
        {"eval 1", ""},
    };
    for (const auto& row : rows) {
        const auto evaluation = evaluation_of_comment(row.comment);
        EXPECT_EQ(evaluation ? evaluation->text() : "", row.text) << row.comment;
    }
}

/// A line in short: depth/selective, line, evaluation, nodes, speed, time, moves.
std::string summary(const SearchInfo& info) {
    const auto number = [](const auto& value) { return value ? std::to_string(*value) : std::string("-"); };
    std::string text = number(info.depth) + "/" + number(info.selective_depth) + " " +
                       std::to_string(info.line) + " " + (info.score ? info.score->text() : "-") + " " +
                       number(info.nodes) + " " + number(info.nodes_per_second) + " " + number(info.time);
    for (const auto& move : info.moves) text += " " + move;
    return text;
}

TEST(SearchInfo, ReadsBothForms) {
    const struct {
        const char *line, *read;
    } rows[] = {
        {" depth 20 seldepth 28 multipv 2 score cp 31 nodes 123456 nps 700000 hashfull 53 tbhits 0 time 176 "
         "pv e2e4 e7e5",
         "20/28 2 +0.31 123456 700000 176 e2e4 e7e5"},
        {" depth 5 score cp -10 lowerbound nodes 3 pv e2e4", "5/- 1 ≥-0.10 3 - - e2e4"},
        {" score mate -2 pv e2e4", "-/- 1 -#2 - - - e2e4"},
        {" depth 12 currmove e2e4 currmovenumber 1", "12/- 1 - - - -"},
        {" string depth 99 score cp 3", "-/- 1 - - - -"},
        {" depth x nodes 99999999999999999999 wdl 1 2 3 pv e2e4", "-/- 1 - - - - e2e4"},
        {" pv e2e4 depth 9", "9/- 1 - - - - e2e4"},
        {" multipv -7 pv e2e4", "-/- 1 - - - - e2e4"},
        // What the driver makes of xboard engines: hundredths of a second, moves of all kinds behind it.
        {" depth 6 score cp 15 time 10 nodes 9000 nps 90000  e2e4 e7e5",
         "6/- 1 +0.15 9000 90000 100 e2e4 e7e5"},
        {" depth 6 score cp -100003 time 10 nodes 9 nps 90 1. Nf3 Nf6 2...d5!? <HT> (best so far)",
         "6/- 1 -#3 9 90 100 Nf3 Nf6 d5"},
        {" depth 6 score cp 100000 time 1 nodes 9 nps 90 Qh7#", "6/- 1 #1 9 90 10 Qh7#"},
        {" depth 6 score cp 15 time 10 nodes 9000 nps 90000 tbhits 5", "6/- 1 +0.15 9000 90000 10"},
    };
    for (const auto& row : rows) EXPECT_EQ(summary(read_search_info(row.line, Side::white)), row.read);
}

TEST(SearchLines, KeepTheNewestOfEachLineInOrder) {
    SearchLines lines;
    for (const char* line : {" depth 8 multipv 2 score cp 5 nodes 10 pv d2d4",
                             " depth 8 multipv 1 score cp 9 pv e2e4", " depth 9 seldepth 12 nodes 99 nps 5",
                             " depth 9 multipv 2 score cp 7 pv g1f3", " depth 9 multipv 2 score cp 4"}) {
        lines.take(read_search_info(line, Side::white));
    }
    ASSERT_EQ(lines.lines().size(), 2U);
    EXPECT_EQ(lines.lines()[0].moves, std::vector<std::string>{"e2e4"});
    EXPECT_EQ(lines.lines()[1].moves, std::vector<std::string>{"g1f3"});
    EXPECT_EQ(lines.lines()[1].score->text(), "+0.04");
    EXPECT_EQ(lines.evaluation()->text(), "+0.09");
    EXPECT_EQ(summary(lines.figures()), "9/12 1 - 99 5 -");
    lines.clear();
    EXPECT_FALSE(lines.evaluation());
}

TEST(ReadLine, CutsAheadOfWhatIsNoMove) {
    const struct {
        const char* fen;
        std::vector<std::string> words;
        std::string sans;
    } rows[] = {
        {"", {"e2e4", "e7e5", "Nf3", "b8c6"}, "e4 e5 Nf3 Nc6 "},
        {"", {"e2e4", "e2e4", "e7e5"}, "e4 "},
        {"", {"0000", "e2e4"}, ""},
        {"8/P6k/8/8/8/8/8/K7 w - - 0 1", {"a7a8q", "h7h6"}, "a8=Q Kh6 "},
        {"r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1", {"e1g1", "e8c8"}, "O-O O-O-O "},
        {"1r4kr/8/8/8/8/8/8/1R4KR w HBhb - 0 1", {"g1h1", "g8h8"}, "O-O O-O "},
    };
    for (const auto& row : rows) {
        ChessPosition position;
        position.new_game();
        if (*row.fen != '\0') position.fen(row.fen);
        std::string sans;
        for (const LineMove& move : read_line(position, row.words)) sans += move.san + " ";
        EXPECT_EQ(sans, row.sans);
    }
}

TEST(GameEvaluations, CommentsGoFirstAndDepthCounts) {
    Game game;
    game.parse_pgn("1. e4 {[%eval 0.3]} e5 (1... c5 2. Nf3) 2. Nf3 1-0\n");
    const GameTree& tree = game.tree();
    GameEvaluations known;
    const auto shown = [&] {
        std::string text;
        for (const auto& node : known.main_line(tree)) {
            text += node.move + " " + (node.evaluation ? node.evaluation->text() : "-") + "; ";
        }
        return text;
    };
    const auto e4 = tree.node(0).child_at(0), e5 = tree.node(e4).child_at(0);
    known.note(tree, e4, Evaluation::of_centipawns(90, Side::white), 30);
    known.note(tree, e5, Evaluation::of_centipawns(50, Side::white), 12);
    known.note(tree, e5, Evaluation::of_centipawns(10, Side::white), 3);
    known.note(tree, 0, Evaluation::of_centipawns(10, Side::white, Bound::upper), 40);
    EXPECT_EQ(shown(), "Start -; 1. e4 +0.30; 1... e5 +0.50; 2. Nf3 -; ");
    known.note(tree, e5, Evaluation::of_centipawns(70, Side::white), 12);
    EXPECT_EQ(known.at(tree, e5)->text(), "+0.70");
    known.clear();
    EXPECT_FALSE(known.at(tree, e5));
}

}  // namespace
}  // namespace velmora
