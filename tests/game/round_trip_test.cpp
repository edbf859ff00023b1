// What is printed reads back as the same game.

#include <random>
#include <string>

#include <gtest/gtest.h>

#include "chess/moves/legal_moves.h"
#include "game/game.h"
#include "game/pgn_file.h"
#include "tests/support/scratch_directory.h"

namespace velmora {
namespace {

using Random = std::mt19937;

std::size_t below(Random& random, std::size_t bound) { return random() % bound; }

std::string random_comment(Random& random) {
    static const std::string words[] = {"a",   "good", "(", ")", "[",  "=", "\xC3\xA9",
                                        "12.", "1-0",  ";", "%", "\"", "<", "*"};
    std::string comment;
    for (auto count = below(random, 30); count > 0; --count) {
        comment += (comment.empty() ? "" : " ") + words[below(random, std::size(words))];
    }
    return comment;
}

/// Plays a random line and leaves variations at its moves, down to three deep; stands where it began.
void grow(Game& game, Random& random, int depth) {
    const auto start = game.moves().size();
    for (auto count = 1 + below(random, 20); count > 0; --count) {
        const auto moves = legal_moves(game);
        if (moves.size() == 0) break;
        // Alternatives to the first move are not printed.
        if (depth < 3 && !game.moves().empty() && below(random, 4) == 0) grow(game, random, depth + 1);
        game.add_move(moves[below(random, moves.size())]);
        if (below(random, 3) == 0) game.set_comment(random_comment(random));
    }
    while (game.moves().size() > start) game.back();
}

/// The nodes in printing order: depth, move, glyph, comment, colour and number.
void describe(const GameTree& tree, std::int32_t id, std::string& text) {
    const auto& node = tree.node(id);
    if (id != 0) text += node.san + node.nag + "{" + node.comment + "}" + node.result;
    if (node.type == ElementType::move)
        text += std::string(node.color == Side::white ? "w" : "b") + "." + std::to_string(node.move_number);
    text += '(';
    for (const auto child : node.children) describe(tree, child, text);
    text += ')';
}

std::string structure(const GameTree& tree) {
    std::string text;
    describe(tree, 0, text);
    return text;
}

const char* const starts[] = {
    "",
    "r1bqkbnr/pppp1ppp/2n5/4p3/4P3/5N2/PPPP1PPP/RNBQKB1R w KQkq - 2 3",
    "rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq - 0 1",
    "8/P6k/8/8/8/8/p6K/8 b - - 0 70",
    "bbqnnrkr/pppppppp/8/8/8/8/PPPPPPPP/BBQNNRKR w HFhf - 0 1",
};

TEST(RoundTrip, PrintedGamesReadBackTheSame) {
    Random random(20);
    const ScratchDirectory files;
    for (int round = 0; round < 60; ++round) {
        Game game;
        const std::string fen = starts[static_cast<std::size_t>(round) % std::size(starts)];
        if (!fen.empty()) game.set_tag("FEN", fen);
        if (round % 3 == 0) game.set_root_comment(random_comment(random));
        grow(game, random, 0);
        game.to_end();
        std::string result = round % 4 == 0 ? "*" : round % 4 == 1 ? "1/2-1/2" : "0-1";
        game.set_result(result);

        const auto printed = game.pgn();
        PgnFile file;
        file.open(files.write("game.pgn", printed + printed));
        Game read;
        read.parse_pgn(file.next_game());
        // A game that was prepared by FEN numbers from 1, a loaded one from the FEN.
        const auto again = read.pgn();
        if (fen.empty() || fen.ends_with(" 1")) {
            EXPECT_EQ(structure(read.tree()), structure(game.tree()));
            EXPECT_EQ(again, printed);
        }
        Game third;
        third.parse_pgn(again);
        EXPECT_EQ(third.pgn(), again);
        third.to_end();
        EXPECT_EQ(third.fen(), game.fen());

        read.parse_pgn(file.next_game());
        EXPECT_EQ(read.pgn(), again) << "the second game of the file";
    }
}

TEST(RoundTrip, GlyphsAndNestedVariations) {
    const std::string moves =
        "1.e4 $1 e5 $2 {a} 2.Nf3 $13 ( 2.Nc3 $5 Nf6 ( 2... Nc6 {b} 3.Bc4 ( 3.f4 $6 exf4))\n"
        "3.f4) ( 2.f4) Nc6 1/2-1/2";
    Game game;
    game.parse_pgn(moves);
    const auto printed = game.pgn();
    EXPECT_EQ(printed.substr(printed.find("\n\n") + 2), moves + "\n\n");
}

}  // namespace
}  // namespace velmora
