// The tree is changed beyond the current node, and changed back.

#include <algorithm>
#include <functional>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "base/text.h"
#include "chess/moves/legal_moves.h"
#include "game/game.h"

namespace velmora {
namespace {

Game loaded(std::string_view text) {
    Game game;
    game.parse_pgn(text);
    return game;
}

/// The moves as they are printed, in one line: where a line ends depends on the id of the first move.
std::string movetext(Game& game) {
    auto text = game.pgn();
    text = text.substr(text.find("\n\n") + 2);
    std::replace(text.begin(), text.end(), '\n', ' ');
    return std::string(text::trim_blanks(text));
}

/// The node of the n-th move with this text, in the order of ids.
std::int32_t find(const Game& game, std::string_view san, int n = 0) {
    for (std::int32_t id = 0; id < game.tree().end_id(); ++id) {
        if (game.tree().has_node(id) && game.tree().node(id).san == san && n-- == 0) return id;
    }
    return -1;
}

/// Every node in its order, the alternatives to the first move too, which are never printed.
std::string structure(const GameTree& tree, std::int32_t id = 0) {
    const auto& node = tree.node(id);
    std::string text = node.san + node.nag + node.comment + node.result + "(";
    for (const auto child : node.children) text += structure(tree, child);
    return text + ")";
}

constexpr const char* game_text =
    "1. e4 e5 2. Nf3 (2. Bc4 Nf6 (2... Bc5 3. Qh5) 3. d3) (2. f4) 2... Nc6 3. Bb5 1-0";

TEST(GameEditing, ChangesTheTreeAndTakesItBack) {
    struct Case {
        const char* name;
        std::function<bool(Game&)> edit;
        const char* text;  // nothing: there is nothing to do
    };
    const Case cases[] = {
        {"one step up", [](Game& game) { return game.promote(find(game, "Qh5")); },
         "1.e4 e5 2.Nf3 ( 2.Bc4 Bc5 ( 2... Nf6 3.d3) 3.Qh5) ( 2.f4) Nc6 3.Bb5 1-0"},
        {"the last of three", [](Game& game) { return game.promote(find(game, "f4")); },
         "1.e4 e5 2.f4 ( 2.Nf3 Nc6 3.Bb5) ( 2.Bc4 Nf6 ( 2... Bc5 3.Qh5) 3.d3) 1-0"},
        {"to the top", [](Game& game) { return game.make_main_line(find(game, "Qh5")); },
         "1.e4 e5 2.Bc4 ( 2.Nf3 Nc6 3.Bb5) ( 2.f4) Bc5 ( 2... Nf6 3.d3) 3.Qh5 1-0"},
        {"from here on", [](Game& game) { return game.delete_from(find(game, "Bc5")); },
         "1.e4 e5 2.Nf3 ( 2.Bc4 Nf6 3.d3) ( 2.f4) Nc6 3.Bb5 1-0"},
        {"the end of the game", [](Game& game) { return game.delete_from(find(game, "Nc6")); },
         "1.e4 e5 2.Nf3 ( 2.Bc4 Nf6 ( 2... Bc5 3.Qh5) 3.d3) ( 2.f4) 1-0"},
        {"a variation moves up", [](Game& game) { return game.delete_from(find(game, "Nf3")); },
         "1.e4 e5 2.Bc4 ( 2.f4) Nf6 ( 2... Bc5 3.Qh5) 3.d3 1-0"},
        {"a whole variation", [](Game& game) { return game.delete_variation(find(game, "d3")); },
         "1.e4 e5 2.Nf3 ( 2.f4) Nc6 3.Bb5 1-0"},
        {"the main line stays", [](Game& game) { return game.delete_variation(find(game, "Bb5")); }, nullptr},
        {"it is the main line", [](Game& game) { return game.promote(find(game, "Bb5")); }, nullptr},
        {"it is at the top", [](Game& game) { return game.make_main_line(find(game, "Bb5")); }, nullptr},
        {"the start stays", [](Game& game) { return game.delete_from(0); }, nullptr},
        {"no such node", [](Game& game) { return game.delete_from(99) || game.promote(-1); }, nullptr},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.name);
        Game game = loaded(game_text);
        const std::string before = movetext(game);
        EXPECT_EQ(each.edit(game), each.text != nullptr);
        EXPECT_EQ(movetext(game), each.text ? each.text : before);
        EXPECT_EQ(game.undo_edit(), each.text != nullptr);
        EXPECT_EQ(movetext(game), before);
    }
}

TEST(GameEditing, TheGameStandsSomewhereAllTheTime) {
    Game game = loaded(game_text);
    game.go_to(find(game, "Qh5"));
    const std::string fen = game.fen();
    game.make_main_line(find(game, "f4"));
    EXPECT_EQ(game.fen(), fen);
    game.delete_variation(find(game, "Bc4"));
    EXPECT_EQ(game.current(), find(game, "e5"));
    EXPECT_EQ(game.moves_text(), "e2e4 e7e5");
    game.set_symbol(find(game, "e5"), "$1");
    ASSERT_TRUE(game.undo_edit());
    EXPECT_EQ(game.fen(), fen) << "back where one stood";
    EXPECT_EQ(game.tree().node(find(game, "e5")).nag, "$1") << "what was done since stays";
    // The node of a result is a place, too.
    game.to_end();
    std::string result = "1-0";
    game.set_result(result);
    ASSERT_TRUE(game.promote(find(game, "Nf3")));
    EXPECT_EQ(game.fen(), game.go_to(game.current()));
    game.reset();
    EXPECT_FALSE(game.can_undo_edit());
}

TEST(GameEditing, AnAlternativeToTheFirstMoveCanBecomeTheGame) {
    Game game = loaded("1. e4 (1. d4 d5 2. c4) e5 1-0");
    ASSERT_TRUE(game.promote(find(game, "c4")));
    EXPECT_EQ(movetext(game), "1.d4 d5 2.c4 1-0");
}

TEST(GameEditing, SymbolsAreGlyphsOfMoves) {
    Game game = loaded(game_text);
    const auto move = find(game, "Nf3");
    EXPECT_TRUE(game.set_symbol(move, "$14"));
    EXPECT_EQ(game.tree().node(move).nag, "$14");
    for (const char* nothing : {"$14", "!", "$", "$1234", "$1} 1-0"}) {
        EXPECT_FALSE(game.set_symbol(move, nothing)) << nothing;
    }
    EXPECT_FALSE(game.set_symbol(0, "$1"));
    EXPECT_TRUE(game.set_symbol(move, ""));
    EXPECT_EQ(game.tree().node(move).nag, "");
}

TEST(GameEditing, ALineIsAddedWithoutGoingThere) {
    Game game = loaded(game_text);
    game.go_to(find(game, "Bc4"));
    const auto fen = game.fen();
    const std::vector<Move> line = {game.convert_to_move("b8c6"), game.convert_to_move("d1h5"),
                                    game.convert_to_move("a1a8"), game.convert_to_move("g8f6")};
    const auto reached = game.add_line(line);
    EXPECT_EQ(game.fen(), fen);
    EXPECT_EQ(game.tree().node(reached).san, "Qh5") << "as far as it is legal";
    EXPECT_EQ(game.add_line(line), reached) << "it is there already";
    EXPECT_EQ(game.add_line({}), game.current());
    EXPECT_EQ(movetext(game),
              "1.e4 e5 2.Nf3 ( 2.Bc4 Nf6 ( 2... Bc5 3.Qh5) ( 2... Nc6 3.Qh5) 3.d3) ( 2.f4) Nc6 3.Bb5 1-0");
}

/// Plays, deletes and promotes at random, and takes all edits back in between: what is undone leaves the tree
/// as it was ahead of the edit, as far as nothing else was done since.
TEST(GameEditing, RandomEditsAreTakenBackExactly) {
    std::mt19937 random(7);
    const auto below = [&random](std::size_t bound) { return static_cast<std::int32_t>(random() % bound); };
    for (int round = 0; round < 40; ++round) {
        Game game;
        for (int step = 0; step < 60; ++step) {
            const auto moves = legal_moves(game);
            if (moves.size() > 0) game.add_move(moves[random() % moves.size() % 4 % moves.size()]);
            if (below(6) == 0) game.go_to(0);
            if (below(4) == 0) game.back();
        }
        game.to_start();
        game.to_end();
        std::string result = round % 2 == 0 ? "1-0" : "*";
        game.set_result(result);
        std::vector<std::string> before;
        for (int edit = 0; edit < 25; ++edit) {
            const auto was = structure(game.tree());
            const auto id = below(static_cast<std::size_t>(game.tree().end_id()));
            const bool changed = edit % 4 == 0   ? game.promote(id)
                                 : edit % 4 == 1 ? game.make_main_line(id)
                                 : edit % 4 == 2 ? game.delete_variation(id)
                                                 : game.delete_from(id);
            if (changed) before.push_back(was);
            Game again = game;
            ASSERT_EQ(again.go_to(again.current()), game.fen());
            again.parse_pgn(game.pgn());
            ASSERT_EQ(movetext(again), movetext(game)) << "a result in a variation would end the text";
        }
        for (; !before.empty(); before.pop_back()) {
            ASSERT_TRUE(game.undo_edit());
            ASSERT_EQ(structure(game.tree()), before.back());
        }
        EXPECT_FALSE(game.undo_edit());
    }
}

/// What was deleted comes back even where its ids went to other moves meanwhile.
TEST(GameEditing, WhatWasDeletedOutlivesItsIds) {
    Game game = loaded("1. e4 e5 (1... c5) 2. Nf3 (2. f4) 2... Nc6 (2... d6 3. d4)");
    const auto id = find(game, "d6");
    game.delete_from(find(game, "d4"));
    game.delete_from(id);
    game.go_to(find(game, "f4"));
    for (const char* move : {"e5f4", "g1f3", "d7d6", "d2d4"}) game.add_move(game.convert_to_move(move));
    ASSERT_TRUE(game.tree().has_node(id)) << "the id belongs to another move";
    while (game.undo_edit()) {
    }
    EXPECT_EQ(movetext(game), "1.e4 e5 ( 1... c5) 2.Nf3 ( 2.f4 exf4 3.Nf3 d6 4.d4) Nc6 ( 2... d6 3.d4) *");
}

}  // namespace
}  // namespace velmora
