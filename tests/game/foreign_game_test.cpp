#include <algorithm>
#include <string>

#include <gtest/gtest.h>

#include "base/text.h"
#include "game/foreign/game_repair.h"
#include "game/game.h"

namespace velmora {
namespace {

std::string repeated(const std::string& word, std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) text += word;
    return text;
}

/// The movetext of a repaired game, in one line.
std::string moves_of(const std::string& game) {
    auto text = repair_game(game).text;
    text = text.substr(text.find("\n\n") + 2);
    text.resize(text.find_last_not_of('\n') + 1);
    std::ranges::replace(text, '\n', ' ');
    return text;
}

std::string remarks_of(const std::string& game) {
    std::string text;
    for (const auto& remark : repair_game(game).remarks) text += describe(remark) + "\n";
    return text;
}

TEST(ForeignGame, MovesAreWrittenAnew) {
    const struct {
        const char* name;
        std::string source, moves;
    } rows[] = {
        {"results of print", "1. e4 e5 1\u20130", "1. e4 e5 1-0"},
        {"half signs", "1. e4 e5 \u00BD\u2014\u00BD", "1. e4 e5 1/2-1/2"},
        {"a result glued to a mark", "1. f4 e5 2. g4 Qh4#0-1", "1. f4 e5 2. g4 Qh4# 0-1"},
        {"half a result", "1. e4 e5 1/2", "1. e4 e5 1/2-1/2"},
        {"no result", "1. e4 e5", "1. e4 e5 *"},
        {"figurines", "1. \u2658f3 \u265Ec6\uFE0E 2. \u2659e4 *", "1. Nf3 Nc6 2. e4 *"},
        {"castling", "1. e4 e5 2. Nf3 Nf6 3. Be2 Be7 4. 0-0 O\u2013o *",
         "1. e4 e5 2. Nf3 Nf6 3. Be2 Be7 4. O-O O-O *"},
        {"castling as UCI has it", "e2e4 e7e5 g1f3 g8f6 f1e2 f8e7 e1g1 *",
         "1. e4 e5 2. Nf3 Nf6 3. Be2 Be7 4. O-O *"},
        {"long castling with a check mark", "[FEN \"8/8/8/8/3k4/8/8/R3K3 w Q - 0 1\"] 1. 0-0-0+!? *",
         "1. O-O-O+ $5 *"},
        {"promotions",
         "[FEN \"8/P1P1P1P1/8/8/8/k7/7K/8 w - - 0 1\"] 1. a8Q+ Kb3 2. c8(N) Kb4 3. e8/R Kb5 4. g8=b *",
         "1. a8=Q+ Kb3 2. c8=N Kb4 3. e8=R Kb5 4. g8=B *"},
        {"en passant", "1. e4 a6 2. e5 d5 3. exd6 e.p. cxd6e.p. *", "1. e4 a6 2. e5 d5 3. exd6 cxd6 *"},
        {"captures in short and with other signs", "1. e4 d5 2. ed Q:d5 3. Nc3 Qd5\u00D7g2 4. B-g2 *",
         "1. e4 d5 2. exd5 Qxd5 3. Nc3 Qxg2 4. Bxg2 *"},
        {"letters of pieces in other languages aren't guessed", "1. Sf3 Sf6 *", "{Sf3 Sf6} *"},
        {"suffixes and signs", "1. e4! e5?! 2. Nf3 \u00B1 Nc6?? += 3. Bb5 $1 $14 *",
         "1. e4 $1 e5 $6 2. Nf3 $16 Nc6 $4 {\u2A72} 3. Bb5 $1 {\u2A72} *"},
        {"numbers glued and missing", "1.e4 e5 2Nf3 Nc6 3...\u2026Bb5 *", "1. e4 e5 2. Nf3 Nc6 3. Bb5 *"},
        {"moves without a gap aren't", "1.e4e5 2. Nf3 *", "{e4e5 2. Nf3} *"},
        {"comments to the end of the line", "1. e4 ; best by test 1-0\n% 1. d4\ne5 *",
         "1. e4 {best by test 1-0} 1... e5 *"},
        {"comments in every place", "{a} 1. e4 {b} {c} ({d} 1. d4 {e}) {f} e5 () 1-0 {g}",
         "{a} 1. e4 {b c f} (1. d4 {d e}) 1... e5 {g} 1-0"},
        {"braces and controls in comments", "1. e4 {a{b\tc\nd} e5 *", "1. e4 {a(b c d} 1... e5 *"},
        {"an open comment", "1. e4 {1-0", "1. e4 {1-0} *"},
        {"null moves end a line", "1. e4 e5 2. -- Nc6 {why {not} 3. Z0 1-0",
         "1. e4 e5 {-- Nc6 (why (not) 3. Z0} 1-0"},
        {"a threat", "1. e4 e5 (1... null 2. d4) 2. Nf3 (2. d4 Z0 3. dxe5 (3. d5)) *",
         "1. e4 e5 {(null 2. d4)} 2. Nf3 (2. d4 {Z0 3. dxe5 (3. d5)}) *"},
        {"a move that isn't legal", "1. e4 e5 2. Ke3 Nc6 0-1", "1. e4 e5 {Ke3 Nc6} 0-1"},
        {"a variation ahead of the first move", "(1. d4) 1. e4 *", "{(1. d4)} 1. e4 *"},
        {"a result within a variation", "1. e4 (1. d4 1-0) e5 0-1", "1. e4 (1. d4 {1-0}) 1... e5 0-1"},
        {"a result within what isn't closed", "1. e4 (1. d4 d5 0-1", "1. e4 (1. d4 d5) 0-1"},
        {"words", "1. e4 Best: e5 novelty * ", "1. e4 {Best:} 1... e5 {novelty} *"},
        {"Windows-1252", "1. e4 {\x93M\xFCller\x94 \xC3\xBC} *", "1. e4 {\u201CM\u00FCller\u201D \u00FC} *"},
        {"black begins", "[FEN \"4k3/8/8/8/8/8/8/4K2R b - - 0 30\"] Ke7 Rh2 *", "30... Ke7 31. Rh2 *"},
        {"a start that can't be read", "[FEN \"x\"] 1. e4 *", "1. e4 *"},
        {"no move at all", "", "*"},
    };
    for (const auto& row : rows) EXPECT_EQ(moves_of(row.source), row.moves) << row.name;
}

TEST(ForeignGame, TagsAreWrittenAnew) {
    const struct {
        const char* name;
        std::string header, name_of_tag, value;
    } rows[] = {
        {"brackets", "[Event \"Open [Group 2] 2023\"]", "Event", "Open (Group 2) 2023"},
        {"harmless brackets", "[Event \"Open [A]\"]", "Event", "Open [A]"},
        {"quotes", R"([White ""Deep" Blue"])", "White", "'Deep' Blue"},
        {"escaped quotes stay", R"([White "a \"b\" c"])", "White", R"(a \"b\" c)"},
        {"two in a line", R"([White "a]"] [Black "b"])", "Black", "b"},
        {"no quotes", "[White Kasparov, G]", "White", "Kasparov, G"},
        {"not closed", "[White \"Kasparov\n[Black \"b\"]", "White", "Kasparov"},
        {"over two lines", "[White \"Kaspa\nrov\"]", "White", "Kaspa rov"},
        {"too long", "[Site \"" + repeated("\u00E9", 200) + "\"]", "Site", repeated("\u00E9", 50)},
        {"a half sign for a result", "[Result \"\u00BD-\u00BD\"]", "Result", "1/2-1/2"},
        {"the result behind the moves", "[Result \"?\"]", "Result", "0-1"},
    };
    for (const auto& row : rows) {
        Game game;
        game.parse_pgn(repair_game(row.header + "\n\n1. e4 0-1").text);
        EXPECT_EQ(game.tag(row.name_of_tag), row.value) << row.name;
        EXPECT_NE(game.to_end(), "") << row.name;
    }
}

TEST(ForeignGame, RemarksTellWhatAndWhere) {
    EXPECT_EQ(
        remarks_of("[White \"\u00E9\"]\n[Event \"[1] 2\"]\n\n1. e4 e5 2. Nf3 Nc6 3. Bc4 \u265Ef6 4. "
                   "0-0\n\u00E4 0-0 *"),
        "line 2, column 1: a tag in a form of its own: [Event \"[1] 2\"]\n"
        "line 4, column 28, move 3...: figurines for piece letters: \u265Ef6\n"
        "line 4, column 35, move 4.: castling in another spelling: 0-0\n"
        "line 5, column 1, move 4...: a word among the moves, which is a comment now: \u00E4\n"
        "line 5, column 3, move 4...: no move that can be made, which ends the line; the rest of it is a "
        "comment: 0-0\n");
    EXPECT_EQ(remarks_of("[White \"x\"]\n\n1. e4 e5 *"), "") << "nothing to repair, nothing to say";
}

TEST(ForeignGame, LongCommentsAreKeptWhole) {
    const auto words = repeated("word ", 700) + "[%csl " + repeated("Ga1,", 150) + "] end";
    const std::string move = repeated("move ", 300) + "end";
    const auto source = "{" + words + "} 1. e4 {" + move + "} (1. d4 {" + words + "}) 1... e5 2. Nf3 {" +
                        words + "} (2. d4) *";
    Game game;
    game.parse_pgn(repair_game(source).text);
    for (const bool is_saved : {false, true}) {
        // The text of a node and of those that repeat it.
        const auto joined = [&game](const std::string& san, std::int32_t parent) {
            std::string text;
            for (const auto child : game.tree().node(parent).children) {
                const auto& node = game.tree().node(child);
                // A saved file may have a line end, which is a blank, ahead of "[%".
                const auto part = text::trim_leading_blanks(node.comment);
                if (node.san == san) text.append(text.empty() ? "" : " ").append(part);
            }
            return text;
        };
        const auto e4 = game.tree().node(0).child_at(0);
        const auto e5 = game.tree().node(e4).child_at(0);
        const auto late = joined("e5", e4);
        const auto& start = game.tree().node(0).comment;
        const auto rest_of_start = words.size() - start.size() - 1;
        EXPECT_EQ(start + " " + late.substr(0, rest_of_start), words);
        EXPECT_EQ(game.tree().node(e4).comment + late.substr(rest_of_start), move);
        EXPECT_EQ(joined("Nf3", e5), words) << is_saved;
        EXPECT_EQ(joined("d4", 0), is_saved ? "" : words)
            << "saving leaves out alternatives to the first move";
        const auto saved = game.pgn();
        game.parse_pgn(saved);
    }
    EXPECT_EQ(repair_game("{" + words + "} *").remarks.back().kind, RemarkKind::comment_cut);
}

TEST(ForeignGame, OnlyWhatTheStrictReaderLosesNeedsRepair) {
    const std::string tag = "[Event \"a\"]\n\n";
    const struct {
        std::string text;
        bool expected;
    } rows[] = {
        {tag + "1. e4 e5! 2. Nf3 {a [%eval 1] (;} (2. d4 exd4) Nc6 $1 $14 1-0 ; behind", false},
        {tag + "1. e2-e4 e7e5 2. Ng1f3 *", false},
        {tag + "1. e2-e4 e7e5 2. g1f3 *", true},
        {tag + "1. e4 e5 2. Ke3 *", false},
        {tag + "1. e4 {" + repeated("x", 1024) + "} *", false},
        {tag + "1. e4 {" + repeated("x", 1025) + "} *", true},
        {"[Event \"" + repeated("x", 248) + "\"]\n\n*", false},
        {"[Event \"" + repeated("x", 249) + "\"]\n\n*", true},
        {"[Event \"Open [A] b\"]\n\n1. e4 *", false},
        {"[Event \"Open [A] 1\"]\n\n1. e4 *", true},
        {"[White \"\"Deep\"\"]\n\n1. e4 *", false},
        {"[White \"\\\"Deep\\\"\"]\n\n1. e4 *", false},
        {"[White Deep]\n[Black \"b\"]\n\n1. e4 *", true},
        {"[Event \"Caf\xC3\xA9\"]\n\n1. e4 *", false},
        {"[Event \"Caf\xE9\"]\n\n1. e4 *", true},
        {tag + "1. e4 \xC2\xBD-\xC2\xBD", true},
        {tag + "1. e4 ; 1\n e5 *", true},
        {tag + "%; escaped [\n1. e4 e5 *", false},
        {tag + "1. e4 e5 [Event \"b\"] *", true},
        {tag + "1. e4 (1. d4 1-0) e5 0-1", true},
        {tag + "(1. d4) 1. e4 *", true},
        {tag + "1. f4 e5 2. Nf3 Be7 3. g3 Nf6 4. Bg2 0-0 *", true},
        {tag + "1. e4 -- 2. d4 *", true},
        {tag + "1. e4 += *", true},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(needs_repair(row.text), row.expected) << row.text.substr(0, 80);
        const auto repaired = repair_game(row.text);
        EXPECT_FALSE(needs_repair(repaired.text)) << row.text.substr(0, 80);
        EXPECT_FALSE(repair_game(repaired.text).is_repaired()) << row.text.substr(0, 80);
    }
}

TEST(ForeignGame, HugeAndBinaryGamesTakeLinearTime) {
    const auto shuffle = repeated("\u2658f3 \u265Ef6 \u2658g1 \u265Eg8 ", 10'000);
    EXPECT_EQ(repair_game(shuffle).plies, 40'000U);
    const std::string hostile[] = {repeated("(e4 ", 50'000),
                                   "1. e4 " + repeated("(d4 ", 50'000),
                                   repeated("<", 200'000),
                                   "1. e4 " + repeated("(d4) ", 20'000),
                                   repeated("[A \"\"]", 50'000),
                                   repeated("\"]", 100'000),
                                   "1. e4 {" + repeated("x", 1'000'000),
                                   repeated("$", 100'000),
                                   std::string(100'000, '\0'),
                                   repeated("1-", 100'000),
                                   repeated("\xFF\xC2", 100'000)};
    for (const auto& text : hostile) {
        const auto game = repair_game(text);
        EXPECT_FALSE(needs_repair(game.text)) << text.substr(0, 20);
        EXPECT_LT(game.text.size(), 4 * text.size() + 1000) << text.substr(0, 20);
    }
}

}  // namespace
}  // namespace velmora
