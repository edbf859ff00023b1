#include "game/game_result.h"

#include <string>

#include <gtest/gtest.h>

#include "channel/to_window.h"
#include "tests/support/positions.h"

namespace velmora {
namespace {

using test::position_of;

/// As the window is told of it; "*" while the game goes on.
std::string told(const GameEnd& end) { return end ? encode(to_window::GameOver{*end}) : "*"; }

TEST(GameResult, FollowsFromPositionAndHistory) {
    const char* const start = test::start_fen.c_str();
    const std::string shuffle = "g1f3 g8f6 f3g1 f6g8 ";
    const struct {
        const char *name, *fen;
        std::string moves;
        const char* expected;
    } rows[] = {
        {"third occurrence", start, shuffle + shuffle, "1/2-1/2 {Draw by threefold repetition}"},
        {"pawn moves in between", start, shuffle + "e2e4 e7e5 " + shuffle, "*"},
        {"white mates", "6k1/5ppp/8/8/8/8/8/R5K1 w - - 0 1", "a1a8", "1-0 {White mates}"},
        {"black mates", start, "f2f3 e7e5 g2g4 d8h4", "0-1 {Black mates}"},
        {"stalemate", "7k/8/6K1/8/8/8/8/5Q2 w - - 0 1", "f1f7", "1/2-1/2 {Stalemate}"},
        {"99 quiet plies", "4k3/8/8/8/8/8/8/R3K3 w - - 98 80", "a1a2", "*"},
        {"100 quiet plies", "4k3/8/8/8/8/8/8/R3K3 w - - 99 80", "a1a2", "1/2-1/2 {Draw by fifty move rule}"},
        {"mate on the 100th", "6k1/5ppp/8/8/8/8/8/R5K1 w - - 99 80", "a1a8", "1-0 {White mates}"},
        {"100 quiet plies and dead material", "4k3/8/8/8/8/8/8/4K3 w - - 100 99", "",
         "1/2-1/2 {Draw by insufficient material}"},
        {"third occurrence and 100 quiet plies", "4k3/8/8/8/8/8/8/R3K3 w - - 92 80",
         "a1a2 e8d8 a2a1 d8e8 a1a2 e8d8 a2a1 d8e8", "1/2-1/2 {Draw by fifty move rule}"},
        {"stalemate of bare kings", "k7/2K5/1N6/8/8/8/8/8 b - - 0 1", "a8a7",
         "1/2-1/2 {Draw by insufficient material}"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(told(result(position_of(row.fen, row.moves))), row.expected) << row.name;
}

TEST(GameResult, TellsDeadMaterial) {
    const struct {
        const char* fen;
        bool expected;
    } rows[] = {
        {"4k3/8/8/8/8/8/8/4K3 w - - 0 1", true},     // bare kings
        {"4k3/8/8/8/8/8/8/4KN2 w - - 0 1", true},    // a knight
        {"4kb2/8/8/8/8/8/8/4K3 w - - 0 1", true},    // a bishop
        {"4kn2/8/8/8/8/8/8/4KB2 w - - 0 1", true},   // knight against bishop
        {"2b1k3/8/8/8/8/8/8/4KB2 w - - 0 1", true},  // bishops on light squares
        {"4kb2/8/8/8/8/8/8/4KB2 w - - 0 1", false},  // bishops of opposite colour
        {"4k3/8/8/8/8/8/8/4KNN1 w - - 0 1", false},  // two knights
        {"4k3/8/8/8/8/8/4P3/4K3 w - - 0 1", false},  // a pawn
        {"r3k3/8/8/8/8/8/8/4K3 w - - 0 1", false},   // a rook
        {"4k3/8/8/8/8/8/8/3QK3 w - - 0 1", false},   // a queen
    };
    for (const auto& row : rows) {
        EXPECT_EQ(is_insufficient_material(position_of(row.fen)), row.expected) << row.fen;
    }
}

TEST(GameResult, AdjudicatesEqualPiecesAfterSixQuietPlies) {
    const struct {
        const char* placement;
        int quiet_plies;
        bool expected;
    } rows[] = {
        {"q3k3/8/8/8/8/8/8/Q3K3", 6, true},     {"q3k3/8/8/8/8/8/8/Q3K3", 5, false},
        {"r3k3/8/8/8/8/8/8/R3K3", 6, true},     {"b3k3/8/8/8/8/8/8/1B2K3", 6, true},
        {"n3k3/8/8/8/8/8/8/N3K3", 99, true},    {"q3k3/8/8/8/8/8/8/R3K3", 99, false},
        {"q3k3/8/8/8/8/8/1P6/Q3K3", 99, false}, {"4k3/8/8/8/8/8/8/4K3", 99, false},
    };
    for (const auto& row : rows) {
        const auto position =
            position_of(std::string(row.placement) + " w - - " + std::to_string(row.quiet_plies) + " 90");
        EXPECT_EQ(is_adjudicated_draw(position), row.expected) << position.fen();
    }
}

TEST(GameResult, FindsTheGeneratedMoveAndRefusesTheRest) {
    const auto castling = position_of("4k3/8/8/8/8/8/8/4K2R w K - 0 1");
    for (const auto& [text, expected] :
         {std::pair("e1h1", "e1g1"), {"h1h8", "h1h8"}, {"h1h8q", "0000"}, {"a1a2", "0000"}, {"", "0000"}}) {
        EXPECT_EQ(legal_move(castling, parse_move(castling, text)).to_string(false), expected) << text;
    }
    EXPECT_TRUE(legal_move(castling, parse_move(castling, "h1h8")).check());

    auto promotion = position_of("8/P3k3/8/8/8/8/8/4K3 w - - 0 1");
    EXPECT_FALSE(play_if_legal(promotion, parse_move(promotion, "a7a8")));
    EXPECT_TRUE(play_if_legal(promotion, parse_move(promotion, "a7a8n")));
    EXPECT_EQ(promotion.fen(), "N7/4k3/8/8/8/8/8/4K3 b - - 0 1");
}

TEST(GameResult, ALossIsOneCommentWhateverTheEngineSaid) {
    EXPECT_EQ(told(loss_of(Side::black, "illegal move: e2e5}1-0{")), "1-0 {illegal move: e2e5)1-0(}");
    EXPECT_LE(loss_of(Side::white, std::string(5000, 'x')).reason.size(), 1000U);
}

}  // namespace
}  // namespace velmora
