#include "game/game.h"

#include <string>

#include <gtest/gtest.h>

#include "chess/notation/san_move.h"
#include "game/annotations.h"
#include "tests/support/thrown_text.h"

namespace velmora {
namespace {

using test::thrown_text;

constexpr const char* unknown_tags =
    "[Event \"?\"]\n[Site \"?\"]\n[Date \"????.??.??\"]\n[Round \"?\"]\n[White \"?\"]\n[Black \"?\"]\n"
    "[Result \"*\"]\n\n";

/// Plays moves given as SAN.
void play(Game& game, std::initializer_list<const char*> moves) {
    for (const auto* san : moves) game.add_move(SanMove(game, san));
}

Game loaded(std::string_view text) {
    Game game;
    game.parse_pgn(text);
    return game;
}

std::string movetext(Game& game) {
    const auto text = game.pgn();
    return text.substr(text.find("\n\n") + 2);
}

TEST(Game, StartsEmpty) {
    Game game;
    EXPECT_TRUE(game.is_empty());
    EXPECT_EQ(game.pgn(), std::string(unknown_tags) + " *\n\n");
    EXPECT_EQ(game.forward() + game.back() + game.to_end(), "");
    game.set_tag("White", "A");
    EXPECT_EQ(game.title(), "A ?");
}

TEST(Game, PlaysKnownMovesAlongTheTree) {
    Game game;
    play(game, {"e4", "e5"});
    game.back();
    play(game, {"e5"});
    game.back();
    play(game, {"c5", "Nf3"});
    game.back();
    game.back();
    EXPECT_EQ(game.continuations()[1].to_string(false), "c7c5");
    EXPECT_NE(game.follow(game.convert_to_move("c7c5")), "");
    EXPECT_EQ(game.follow(game.convert_to_move("d2d4")), "") << "not in the tree";
    EXPECT_EQ(game.current(), 3);
    EXPECT_EQ(movetext(game), "1.e4 e5 ( 1... c5 2.Nf3) *\n\n");
    EXPECT_THROW(game.add_move(game.convert_to_move("a1a5")), std::logic_error);
    EXPECT_EQ(game.moves_text(), "e2e4 c7c5");
}

TEST(Game, StopsAheadOfMovesThatCannotBeMade) {
    const struct {
        const char *text, *reached, *error;
    } rows[] = {
        {"1. e4 Ke4", "e2e4", "no moving piece found"},
        {"1. e4 e6 2. d4 Bb4 3. Nf3", "e2e4 e7e6 d2d4 f8b4", "illegal move \"Nf3\""},  // leaves the check
        {"1. e4 2. (2. d4)", "e2e4", "move without text"},
    };
    for (const auto& row : rows) {
        Game game = loaded(row.text);
        EXPECT_NE(thrown_text([&] { game.to_end(); }).find(row.error), std::string::npos) << row.text;
        EXPECT_EQ(game.moves_text(), row.reached);
        EXPECT_THROW(game.forward(), std::logic_error);
        EXPECT_EQ(game.moves_text(), row.reached);
    }
}

TEST(Game, SetsResults) {
    const struct {
        const char *text, *word, *printed;
    } rows[] = {
        {"1-0 {White mates}", "1-0", "1.e4 1-0 {White mates}\n\n"},
        {"{White resigns} 0-1", "0-1", "1.e4 {White resigns} 0-1\n\n"},
        {"0-1 and not 1-0", "1-0", "1.e4 0-1 and not 1-0\n\n"},
        {"Draw by repetition", "*", "1.e4 *\n\n"},
    };
    for (const auto& row : rows) {
        Game game;
        play(game, {"e4"});
        std::string text = row.text;
        game.set_result(text);
        EXPECT_EQ(text, row.word);
        EXPECT_EQ(game.result(), row.word);
        EXPECT_EQ(movetext(game), row.printed);
    }
}

TEST(Game, StepsFromAResult) {
    Game game;
    play(game, {"e4", "e5"});
    const auto after_e4 = loaded("e4").to_end();
    std::string text = "1-0";
    game.set_result(text);
    EXPECT_EQ(game.forward(), "");
    EXPECT_EQ(game.moves_text(), "e2e4 e7e5") << "stepping never comes to rest on a result";
    game.set_result(text = "0-1 {other}");
    game.set_result(text = "0-1 {third}");
    EXPECT_EQ(movetext(game), "1.e4 e5 0-1 {third}\n\n") << "one result for a position";
    game.set_comment("last words");
    EXPECT_EQ(movetext(game), "1.e4 e5 {last words} 0-1 {third}\n\n");
    EXPECT_EQ(game.back(), after_e4);
    EXPECT_EQ(game.moves_text(), "e2e4");
}

TEST(Game, GoesOnBehindAResult) {
    const auto goes_on = [](Game game, const char* san) {
        play(game, {san});
        EXPECT_EQ(game.result(), "*");
        return movetext(game);
    };
    Game game;
    game.add_end_game("1-0");
    EXPECT_EQ(game.back(), "") << "a result at the start has no move to take back";
    EXPECT_EQ(goes_on(game, "e4"), "1.e4 *\n\n");
    game.reset();
    play(game, {"e4"});
    std::string text = "1/2-1/2";
    game.set_result(text);
    EXPECT_EQ(goes_on(game, "e5"), "1.e4 e5 *\n\n");
    game.back();
    game.forward();
    EXPECT_EQ(goes_on(game, "e5"), "1.e4 e5 *\n\n") << "after stepping about";
    // A loaded root counts as White's: the first move is numbered as Black's.
    EXPECT_EQ(goes_on(loaded("[Result \"*\"]\n\n*"), "e4"), " e4 *\n\n");
    EXPECT_FALSE(loaded("*").is_empty());
}

TEST(Game, FillsHolesWithNewNodes) {
    // Ids 2, 4 and 8 are those of markers.
    Game game = loaded("1. e4 (1. d4) e5 (1... c5 2. Nf3) 2. Nf3 Nc6 *");
    game.to_end();
    play(game, {"Bb5", "a6", "Ba4", "Nf6", "O-O", "Be7"});
    EXPECT_EQ(movetext(game), "1.e4 e5 ( 1... c5 2.Nf3) 2.Nf3 Nc6 3.Bb5 a6 4.Ba4 Nf6 5.O-O Be7 *\n\n");
    EXPECT_EQ(thrown_text([] { GameTree().add_child(1, {}); }), "GameTree::add_child: invalid index");
    EXPECT_THROW(GameTree().node(1), std::out_of_range);
}

TEST(Game, StartsFromFen) {
    const char* const black_to_move = "rnbqkbnr/pppppppp/8/8/8/5N2/PPPPPPPP/RNBQKB1R b KQkq - 1 12";
    Game game;
    game.set_tag("FEN", black_to_move);
    EXPECT_EQ(game.fen(), black_to_move);
    EXPECT_EQ(movetext(game), "1... *\n\n") << "the number stands there also without a move";
    play(game, {"d5", "d4"});
    EXPECT_EQ(movetext(game), "1... d5 2.d4 *\n\n") << "the number is not taken over";
    EXPECT_EQ(game.to_start(), black_to_move);

    game = loaded("[FEN \"" + std::string(black_to_move) + "\"]\n\n12... d5 13. d4 *");
    EXPECT_EQ(game.fen(), black_to_move);
    EXPECT_EQ(movetext(game), "12... d5 13.d4 *\n\n");

    game = loaded("[FEN \"no position\"]\n\n1. e4 *");
    EXPECT_EQ(game.to_start(), GameTags::standard_fen);
    game.forward();
    EXPECT_EQ(game.to_start(), GameTags::standard_fen) << "not the position that it left";
}

TEST(Game, ReplaysWhenThePositionHasNoHistory) {
    Game game;
    play(game, {"e4", "e5", "Nf3"});
    game.set_fen(game.fen());
    game.back();
    EXPECT_EQ(game.moves_text(), "e2e4 e7e5");
}

TEST(Game, ReadsTags) {
    Game game = loaded("[White \"A\"]\n[Black \"B\"]\n1. e4 [Late \"x\"] e5 0-1");
    EXPECT_EQ(game.title(), "A B");
    EXPECT_FALSE(game.tags().contains("Late"));
    EXPECT_EQ(game.result(), "*") << "the tag, not the moves";
    EXPECT_EQ(thrown_text([&] { game.parse_pgn("[White \"C\"]\n(e4)"); }),
              "MoveSection::load invalid subvariation");
    EXPECT_EQ(game.title(), "C ?");
    EXPECT_EQ(game.forward(), "") << "nothing is left of the game before";
}

TEST(Game, GoesToTextOffsets) {
    // SAN that the printer would write differently.
    const std::string moves =
        "1. e4 {c} (1. d4) e5 (1... c5 2. Ng1f3 d6 3. Bb5) 2. Nb1c3 Nf6 3. Nge2 Qa1 4. d4 1-0";
    Game game = loaded("[White \"\xC3\x89va\"]\n\n" + moves);
    const auto text = game.pgn();
    const auto line_at = [&](const std::string& word, std::size_t shift = 0) {
        game.goto_text_offset(text.find(word, text.find("\n\n")) + shift);
        return game.moves_text();
    };
    EXPECT_EQ(line_at("e4"), "e2e4");
    EXPECT_EQ(line_at("{c}"), "e2e4") << "a comment belongs to its move";
    EXPECT_EQ(line_at("Bb5"), "e2e4 c7c5 g1f3 d7d6 f1b5");
    EXPECT_EQ(game.current_text_range(), std::pair(text.find("Bb5") + 0UL, text.find("Bb5") + 3UL));
    EXPECT_EQ(line_at("2.Nb1c3", 2), "e2e4 e7e5 b1c3");
    EXPECT_EQ(line_at("2.Nb1c3"), "e2e4 e7e5 b1c3") << "a number is nobody's";
    EXPECT_EQ(line_at("d4"), "e2e4 e7e5 b1c3 g8f6 g1e2") << "as far as moves can be made";
    EXPECT_EQ(line_at("1-0"), "e2e4 e7e5 b1c3 g8f6 g1e2");
    const auto here = game.fen();
    EXPECT_EQ(game.goto_text_offset(0), here);
    EXPECT_EQ(game.goto_text_offset(text.find("\n\n") + 2), here) << "in the tags";
    EXPECT_EQ(game.goto_text_offset(1U << 30), here);
}

TEST(Game, KeepsComments) {
    Game game;
    game.set_root_comment("first");
    play(game, {"e4"});
    game.set_comment("[%eval 0.3]");
    game.append_comment("[%emt 0:0:5] good;");
    EXPECT_EQ(movetext(game), "{first} \n1.e4 {[%eval 0.3][%emt 0:0:5] good;} *\n\n");
    game.strip_annotations();
    EXPECT_EQ(game.comment(), " good");
}

TEST(Annotations, GoAway) {
    const struct {
        const char *comment, *rest;
    } rows[] = {
        {"a\nb [c] [%d \"]\" e]f; \t;", "ab [c] f"},
        {"[%open", ""},
        {"x [% [%y]z]", "x z]"},
    };
    for (const auto& row : rows) EXPECT_EQ(without_annotations(row.comment), row.rest);
}

TEST(Annotations, CommentsOfUsersCanBeReadBack) {
    EXPECT_EQ(comment_from_user("a {b} c\n%d\ne%"), "a (b) c %d\ne%");
    std::string typed;
    while (typed.size() < 3000) typed += "\xE2\x99\x94 ";
    const auto kept = comment_from_user(typed);
    EXPECT_LE(kept.size(), 1024U);
    EXPECT_TRUE(kept.ends_with(' ') || kept.ends_with("\x94")) << "cut between characters";
    EXPECT_TRUE(typed.starts_with(kept));
}

}  // namespace
}  // namespace velmora
