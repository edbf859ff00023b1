#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "review/game_review.h"
#include "review/review_summary.h"

namespace velmora {
namespace {

Evaluation cp(int value) { return Evaluation::of_centipawns(value, Side::white); }
Evaluation mate(int moves) { return Evaluation::of_mate(moves, Side::white); }

TEST(Verdict, FollowsLossOfChancesAndMates) {
    const struct {
        Evaluation before, after;
        Verdict white, black;  // when that side made the move
    } rows[] = {
        {cp(15), cp(-38), Verdict::none, Verdict::none},  // 0.0973
        {cp(15), cp(-40), Verdict::inaccuracy, Verdict::none},
        {cp(15), cp(-96), Verdict::mistake, Verdict::none},
        {cp(15), cp(-155), Verdict::blunder, Verdict::none},
        {cp(-20), cp(150), Verdict::none, Verdict::blunder},
        {cp(900), cp(700), Verdict::none, Verdict::none},
        {cp(2000), cp(300), Verdict::blunder, Verdict::none},  // no cap
        {cp(0), mate(-3), Verdict::blunder, Verdict::none},
        {cp(-700), mate(-3), Verdict::blunder, Verdict::none},
        {cp(-701), mate(-3), Verdict::mistake, Verdict::none},
        {cp(-999), mate(-3), Verdict::mistake, Verdict::none},
        {cp(-1000), mate(-3), Verdict::inaccuracy, Verdict::none},
        {cp(1000), mate(2), Verdict::none, Verdict::inaccuracy},
        {mate(4), cp(700), Verdict::blunder, Verdict::none},
        {mate(4), cp(701), Verdict::mistake, Verdict::none},
        {mate(4), cp(1000), Verdict::inaccuracy, Verdict::none},
        {mate(4), mate(-1), Verdict::blunder, Verdict::none},
        {mate(2), mate(9), Verdict::none, Verdict::none},
        {mate(-2), cp(-300), Verdict::none, Verdict::blunder},
        {mate(-2), mate(-5), Verdict::none, Verdict::none},
    };
    for (const auto& row : rows) {
        const auto name = row.before.text() + " to " + row.after.text();
        EXPECT_EQ(judge(row.before, row.after, Side::white), row.white) << name;
        EXPECT_EQ(judge(row.before, row.after, Side::black), row.black) << name;
    }
}

/// The expected values were computed apart from the program, by a script that follows lichess' lists.
TEST(Accuracy, AgreesWithThePublicFormulas) {
    const std::vector<int> game = {40,   32,   32,   -28,  -58,  -58,  -46,  -56,  -64,  -124, -154, -114,
                                   -124, -154, -154, -184, -144, -119, -107, -67,  -55,  -65,  -53,  -113,
                                   -101, -89,  -89,  -89,  -119, -149, -457, -445, -420, -428, -458, -488,
                                   -476, -506, -466, -441, -441, 451,  491,  503,  515,  540,  530,  522,
                                   547,  547,  539,  529,  554,  546,  571,  511,  503};
    std::vector<std::optional<Evaluation>> positions = {start_evaluation};
    for (const int value : game) positions.emplace_back(cp(value));
    const auto white = accuracy_of(positions, Side::white, Side::white);
    const auto black = accuracy_of(positions, Side::white, Side::black);
    EXPECT_NEAR(white->percent, 92.64845868835918, 1e-9);
    EXPECT_EQ(white->average_loss, 16);
    EXPECT_NEAR(black->percent, 66.2713885228667, 1e-9);
    EXPECT_EQ(black->average_loss, 39);

    // The same seen from the other side of the board.
    for (auto& position : positions) position = cp(-position->value);
    EXPECT_NEAR(accuracy_of(positions, Side::black, Side::black)->percent, white->percent, 1e-9);

    // Without what is known of one position, the two moves beside it don't count.
    positions = {cp(0), std::nullopt, cp(0), cp(300)};
    EXPECT_FALSE(accuracy_of(positions, Side::white, Side::black));
    EXPECT_EQ(accuracy_of(positions, Side::white, Side::white)->average_loss, 0);
    EXPECT_FALSE(accuracy_of(std::vector<std::optional<Evaluation>>{cp(0)}, Side::white, Side::white));
}

/// What an engine says of each position, by ply: the view of the side to move, as engines speak.
struct Said {
    std::string info;
    std::string choice;
};

Game game_of(const std::string& moves) {
    Game game;
    game.parse_pgn("[Result \"*\"]\n\n" + moves + " *\n");
    return game;
}

/// Reviews by what is said; what isn't said of a wanted position is left out.
void review(Game& game, const std::map<std::size_t, Said>& said, ReviewSettings settings = {},
            std::string_view engine = "Tester 1") {
    GameReview review(game, settings, engine);
    for (const auto ply : review.wanted()) {
        const auto found = said.find(ply);
        if (found == said.end()) continue;
        const Side side = review.line().at(ply).to_move;
        review.take(game, ply, read_search_info(found->second.info, side), found->second.choice);
    }
    review.finish(game);
}

/// The main line with symbols, and its variations as they are printed.
std::string moves_of(Game game) {
    const std::string pgn = game.pgn();
    std::string text = pgn.substr(pgn.rfind("]\n\n") + 3);
    for (auto& c : text) c = c == '\n' ? ' ' : c;
    const auto end = text.find("[%review");
    return end == std::string::npos ? text : text.substr(text.find("} ", end) + 2);
}

const std::map<std::size_t, Said> scholars_mate = {
    {1, {"depth 12 score cp -30 pv e7e5", "e7e5"}},
    {2, {"depth 12 score cp 30 pv g1f3", "g1f3"}},
    {3, {"depth 12 score cp 20 pv g8f6", "g8f6"}},
    {4, {"depth 12 score cp -20 pv b1c3", "b1c3"}},
    {5, {"depth 12 score cp -10 pv d8e7 h5f3 g8f6", "d8e7"}},
    {6, {"depth 12 score mate 1 pv h5f7", "h5f7"}},
};

TEST(GameReview, WritesEvaluationsSymbolsLinesAndSummary) {
    Game game = game_of("1.e4 e5 2.Qh5 {[%clk 0:05:00] too early} Nc6 3.Bc4 Nf6 4.Qxf7#");
    review(game, scholars_mate);
    const std::string text = moves_of(game);
    // The clock and the words stay behind the evaluation; the mating move needs none.
    EXPECT_NE(text.find("{[%eval -0.2][%depth 12][%clk 0:05:00] too early}"), std::string::npos) << text;
    EXPECT_NE(text.find("Nf6 $4 { [%eval #1][%depth 12]} ( 3... 3...Qe7 4.Qf3 Nf6)"), std::string::npos)
        << text;
    EXPECT_NE(text.find("4.Qxf7# *"), std::string::npos) << text;
    EXPECT_EQ(
        game.tree().node(0).comment,
        "Review by Tester 1, 0.5 s a move. White: 0 inaccuracies, 0 mistakes, 0 blunders, average loss 13 "
        "centipawns, accuracy 93%. Black: 0 inaccuracies, 0 mistakes, 1 blunder, average loss 330 "
        "centipawns, accuracy 23%. [%review 0-7 fixed_movetime 500 Tester 1]");
}

TEST(GameReview, GoesOnWhereARunWasStoppedAndReplacesTheSummary) {
    Game game = game_of("{An old rivalry.} 1.e4 e5 2.Qh5 Nc6 3.Bc4 Nf6 4.Qxf7#");
    // The run is cut off at ply 4.
    auto first = scholars_mate;
    for (const std::size_t ply : {1, 2, 3, 4}) first.erase(ply);
    review(game, first);
    EXPECT_NE(game.tree().node(0).comment.find("[%review 5-7 "), std::string::npos);
    // In a file the summary is broken into lines.
    Game loaded;
    loaded.parse_pgn(game.pgn());

    const auto wanted = [&loaded](const char* level, const char* engine) {
        return GameReview(loaded, {Level(level), true, true}, engine).wanted();
    };
    using Plies = std::vector<std::size_t>;
    EXPECT_EQ(wanted("fixed_movetime 500", "Tester 1"), (Plies{4, 3, 2, 1}));
    EXPECT_EQ(wanted("fixed_movetime 100", "Tester 1"), (Plies{4, 3, 2, 1}));
    EXPECT_EQ(wanted("fixed_movetime 501", "Tester 1"), (Plies{6, 5, 4, 3, 2, 1}));
    EXPECT_EQ(wanted("fixed_depth 1", "Tester 1"), (Plies{6, 5, 4, 3, 2, 1}));
    EXPECT_EQ(wanted("fixed_movetime 500", "Tester 2"), (Plies{6, 5, 4, 3, 2, 1}));

    review(loaded, scholars_mate);
    const auto& comment = loaded.tree().node(0).comment;
    EXPECT_TRUE(comment.starts_with("An old rivalry. Review by Tester 1, 0.5 s")) << comment;
    EXPECT_EQ(comment.find("Review by"), comment.rfind("Review by"));
    EXPECT_NE(comment.find("Black: 0 inaccuracies, 0 mistakes, 1 blunder"), std::string::npos) << comment;
    EXPECT_NE(comment.find("[%review 0-7 "), std::string::npos) << comment;
}

TEST(GameReview, LeavesUnmarkedWhatIsNoMistakeToBlame) {
    const auto symbol_of_last = [](const char* pgn, const Said& before, const Said& after,
                                   ReviewSettings settings = {}) {
        Game game;
        game.parse_pgn(pgn);
        const auto plies = ReviewedLine(game).plies();
        review(game, {{plies - 1, before}, {plies, after}}, settings);
        return game.tree().node(ReviewedLine(game).at(plies).node).nag;
    };
    const Said good{"depth 9 score cp 400 pv a1b1", "a1b1"}, bad{"depth 9 score cp 400", "e8d8"};
    const std::string start = "[SetUp \"1\"]\n[FEN \"4k3/8/8/8/8/8/4P3/R3K3 w - - 0 1\"]\n\n";
    const std::string game = start + "1.Ra7 *\n";
    EXPECT_EQ(symbol_of_last(game.c_str(), good, bad), "$4");
    EXPECT_EQ(symbol_of_last(game.c_str(), good, bad, {Level("fixed_depth 9"), false, true}), "");
    EXPECT_EQ(symbol_of_last(game.c_str(), {good.info, "a1a7"}, bad), "") << "the engine's own choice";
    EXPECT_EQ(symbol_of_last(game.c_str(), {"depth 9 score cp 400 lowerbound pv a1b1", "a1b1"}, bad), "");
    EXPECT_EQ(symbol_of_last((start + "1.Ra7 $2 *\n").c_str(), good, {"depth 9 score cp -400", "e8d8"}), "$2")
        << "a person's symbol";
    EXPECT_EQ(symbol_of_last((start + "{[%eval 4]} 1.Ra7 $4 {[%eval -4]} *\n").c_str(), good,
                             {"depth 9 score cp -400", "e8d8"}),
              "")
        << "the symbol of an earlier review";
    // The only move; the opening table's; the end of the game.
    EXPECT_EQ(symbol_of_last("[SetUp \"1\"]\n[FEN \"7k/8/6Q1/8/8/8/8/1R4K1 b - - 0 1\"]\n\n1...Kg8 *\n",
                             {"depth 9 score cp 100", ""}, {"depth 9 score cp 900", ""}),
              "");
    EXPECT_EQ(symbol_of_last("[Result \"*\"]\n\n1.e4 f6 *\n", {"depth 9 score cp -30 pv e7e5", "e7e5"},
                             {"depth 9 score cp 200", ""}),
              "");
    EXPECT_EQ(symbol_of_last("[SetUp \"1\"]\n[FEN \"7k/8/8/6Q1/8/8/8/6K1 w - - 0 1\"]\n\n1.Qg6 *\n",
                             {"depth 9 score cp 900 pv g5f6", "g5f6"}, {"", ""}),
              "")
        << "stalemate";
}

TEST(GameReview, EndsAtAMoveThatCantBeReadAndNoticesAnotherGame) {
    Game game = game_of("1.e4 e5 2.Qxx9 Nc6 3.Bc4");
    const GameReview review(game, {}, "Tester 1");
    EXPECT_EQ(review.wanted(), (std::vector<std::size_t>{2, 1}));
    EXPECT_EQ(review.line().unreadable_move(), "2. Qxx9");
    EXPECT_EQ(review.line().text(),
              "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1 moves e2e4 e7e5");
    EXPECT_TRUE(review.fits(game));
    EXPECT_FALSE(review.fits(game_of("1.e4 c5")));
    EXPECT_FALSE(review.fits(game_of("1.e4")));
    EXPECT_TRUE(review.fits(game_of("1.e4 e5 2.Nf3"))) << "it has become longer";
}

TEST(ReviewSummary, ComesBackAsItWasWritten) {
    const SideSummary some{2, 1, 0, Accuracy{34, 91}};
    const SideSummary unknown{0, 1, 3, {}};
    const ReviewSummary rows[] = {
        {"Searcher 2.1, depth 12", {some, unknown}},
        {"A White: B. Black: C 1.0, 0.5 s a move", {{}, some}},
        {"x", {some, {}}},
        {"x", {}},
    };
    const std::string note = " [%review 0-7 fixed_depth 12 x]";
    for (const auto& row : rows) {
        EXPECT_EQ(find_review_summary("Ahead. " + row.text() + note + " Behind."), row) << row.text();
        // The lines of a file are broken at blanks.
        std::string broken = row.text() + note;
        for (auto& c : broken) c = c == ' ' ? '\n' : c;
        EXPECT_EQ(find_review_summary(broken), row);
    }
    EXPECT_FALSE(find_review_summary("Review by somebody. White: 2 mistakes."));
    EXPECT_FALSE(find_review_summary("[%review 0-7 fixed_depth 12 x]"));
    EXPECT_FALSE(
        find_review_summary("Review by x. White: 2 of them. [%review 0-7 fixed_depth 12 x]")->of.white);
}

}  // namespace
}  // namespace velmora
