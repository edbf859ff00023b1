// How the words of movetext become moves, and positions keys.

#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "collection/header_tags.h"
#include "collection/main_line.h"
#include "collection/position_key.h"
#include "collection/san_resolver.h"
#include "game/game_tags.h"
#include "tests/collection/collection_fixture.h"

namespace velmora {
namespace {

TEST(MainLine, HandsOutTheMovesOfTheMainLine) {
    struct Row {
        std::string movetext;
        std::string words;
        std::string result;
    };
    const Row rows[] = {
        {"1. e4 e5 2.Nf3 Nc6 1-0 2. d4", "e4 e5 Nf3 Nc6", "1-0"},
        {"1.e4 {1. d4 (} e5 (1... c5 {)} (1... c6 2. d4) 2. c3) 2. f4 *", "e4 e5 f4", "*"},
        {"1. e4! $14 e5?! += 2. Nf3 +/- Nc6 = 1/2-1/2", "e4 e5 Nf3 Nc6", "1/2-1/2"},
        {"; 1. d4 1-0\n1. e4\n% 1. c4\ne5 50% 0-1", "e4 e5", "0-1"},
        {"1. 0-0 0-0-0+ 2. exd6 e.p. e8Q e8=Q#", "0-0 0-0-0+ exd6 e8Q e8=Q#", ""},
        {"1. e4 -- 2. Z0", "e4 -- Z0", ""},
        {"1. e4 {never closed 1-0", "e4", ""},
        {"1. e4 ) e5 (1... c5 1-0", "e4 e5", "1-0"},
        {"1. \xE2\x99\x98"
         "f3 \xC2\xBD",
         "\xE2\x99\x98"
         "f3 \xC2\xBD",
         ""},
    };
    for (const auto& row : rows) {
        MainLine line(row.movetext);
        std::vector<std::string_view> words;
        for (auto word = line.next(); !word.empty(); word = line.next()) words.push_back(word);
        EXPECT_EQ(text::join(words), row.words) << row.movetext;
        EXPECT_EQ(line.result(), row.result) << row.movetext;
    }
}

TEST(HeaderTags, ReadsWhatFilesHave) {
    const std::string header =
        "[Event \"A \\\"B\\\" [2]\"]\r\n[White  \"M\xFCller\"]\n{a [%clk]} [White \"twice\"]\n% [Site "
        "\"x\"]\n"
        "[ Black \"no end]\n[Round \"\"Deep\"\"] [ECO\t\"B90\"]\n\n";
    HeaderTags tags;
    const auto whole = header + "{comment} 1. e4";
    EXPECT_EQ(tags.read(whole), header.size());
    EXPECT_EQ(shown_value(tags[Tag::event]), "A \"B\" [2]");
    EXPECT_EQ(shown_value(tags[Tag::white]), "M\xC3\xBCller") << "Latin-1";
    EXPECT_EQ(tags[Tag::site], "");
    EXPECT_EQ(tags[Tag::black], "no end]");
    EXPECT_EQ(tags[Tag::round], "\"Deep\"");
    EXPECT_EQ(tags[Tag::eco], "B90");
    EXPECT_EQ(shown_value(std::string(254, 'x') + "\xC3\xBC"), std::string(254, 'x')) << "cut at a character";
}

TEST(SanResolver, ResolvesWhatProgramsWrite) {
    struct Row {
        std::string fen;
        std::string words;
        std::string move;  // "0000" for none
    };
    const std::string start(GameTags::standard_fen);
    const std::string castling = "r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1";
    const std::string promotion = "1n2k3/P7/8/8/8/8/8/4K3 w - - 0 1";
    const Row rows[] = {
        {start, "Nf3 Ng1f3 Ng1-f3 g1f3 Ngf3 N1f3+", "g1f3"},
        {start, "e4 e2e4 e2-e4 Pe4 Pe2-e4", "e2e4"},
        {start, "e5 Nf4 Ke2 e2 e9 Qxz9 O-O 0-0-0 -- Z0 e4Q Ngg3 \xE2\x99\x98 e", "0000"},
        {castling, "O-O 0-0 O-O+ e1g1 Ke1-g1 Kg1", "e1g1"},
        {castling, "O-O-O 0-0-0# e1c1", "e1c1"},
        {castling, "O-Ox O-O-O-O", "0000"},
        {promotion, "a8=Q a8Q a8=Q+ a7a8q a7-a8=Q", "a7a8q"},
        {promotion, "axb8=N ab8N axb8N a7b8n", "a7b8n"},
        {promotion, "a8 axb8 a8=K a8=P", "0000"},
        {promotion, "a8b a7a8b", "a7a8b"},
        {"4k3/8/8/3pP3/8/8/8/4K3 w - d6 0 1", "exd6 ed6 e5d6 e5xd6", "e5d6"},
        {"4k3/8/8/3pP3/8/8/8/4K3 w - - 0 1", "exd6", "0000"},
        {"4k3/8/8/8/4r3/8/4N3/N3K3 w - - 0 1", "Nc2", "a1c2"},
        {"4k3/8/8/8/8/2N5/8/N3K3 w - - 0 1", "Nb3", "a1b3"},
        {"4k3/8/8/8/8/8/2N1N3/4K3 w - - 0 1", "Nd4", "0000"},
        {"4k3/8/8/8/8/8/2N1N3/4K3 w - - 0 1", "Ncd4 Nc2d4", "c2d4"},
        {"3rk3/8/8/8/8/8/3P4/3K4 b - - 0 1", "Rxd2 Rd2+", "d8d2"},
        {"4k3/8/8/8/8/8/4r3/R3K3 w Q - 0 1", "O-O-O Ra2", "0000"},
    };
    for (const auto& row : rows) {
        const auto position = test::after("", row.fen);
        for (const auto word : text::words(row.words)) {
            EXPECT_EQ(resolve_san(position, word).to_string(false), row.move) << row.fen << ' ' << word;
        }
    }
}

TEST(SanResolver, ResolvesEveryLegalMoveOfRandomGames) {
    std::mt19937 random(3);
    for (int game = 0; game < 30; ++game) {
        ChessPosition position;
        position.new_chess960(static_cast<std::uint32_t>(random() % 960));
        for (int ply = 0; ply < 100; ++ply) {
            const auto moves = legal_moves(position);
            if (moves.empty()) break;
            for (const auto& move : moves) {
                EXPECT_TRUE(resolve_san(position, SanMove(position, move).san()).same_move(move))
                    << position.fen();
            }
            position.do_move(moves[random() % moves.size()]);
        }
    }
}

TEST(PositionKey, IsEqualWhereTheSameMovesArePossible) {
    const auto key = [](const ChessPosition& position) { return position_key(position); };
    const auto of_fen = [](std::string_view fen) { return position_key(test::after("", fen)); };
    EXPECT_EQ(key(test::after("d4 Nf6 c4 e6")), key(test::after("c4 e6 d4 Nf6")));
    EXPECT_EQ(key(test::after("e4")), of_fen("rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq e3 7 9"));
    EXPECT_NE(key(test::after("e4")), of_fen("rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR w KQkq - 0 1"));
    EXPECT_NE(key(test::after("e4 e5 Ke2 Ke7 Ke1 Ke8")), key(test::after("e4 e5"))) << "castling";
    // A pawn that may take, one that is pinned, and one at the other edge of the board.
    EXPECT_NE(of_fen("4k3/8/8/3pP3/8/8/8/4K3 w - d6 0 1"), of_fen("4k3/8/8/3pP3/8/8/8/4K3 w - - 0 1"));
    EXPECT_EQ(of_fen("8/8/8/K2pP2r/8/8/8/4k3 w - d6 0 1"), of_fen("8/8/8/K2pP2r/8/8/8/4k3 w - - 0 1"));
    EXPECT_EQ(key(test::after("Nf3 h5 Ng1 h4 a4")),
              of_fen("rnbqkbnr/ppppppp1/8/8/P6p/8/1PPPPPPP/RNBQKBNR b KQkq - 0 1"));
    // Rights whose king or rook is gone.
    EXPECT_EQ(of_fen("4k3/8/8/8/8/8/8/4K2R w KQkq - 0 1"), of_fen("4k3/8/8/8/8/8/8/4K2R w K - 0 1"));
}

}  // namespace
}  // namespace velmora
