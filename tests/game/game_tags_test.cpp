#include "game/game_tags.h"

#include <gtest/gtest.h>

#include "tests/support/thrown_text.h"

namespace velmora {
namespace {

constexpr const char* unknown_game =
    "[Event \"?\"]\n[Site \"?\"]\n[Date \"????.??.??\"]\n[Round \"?\"]\n[White \"?\"]\n[Black \"?\"]\n"
    "[Result \"*\"]\n";

TEST(GameTags, KeepTheirOrder) {
    GameTags tags;
    tags.set("ECO", "A00");
    tags.set("White", "a \"b\"");
    tags.set("Annotator", "");
    tags.set("ECO", "B00");
    const std::string printed =
        "[Event \"?\"]\n[Site \"?\"]\n[Date \"????.??.??\"]\n[Round \"?\"]\n[White \"a \"b\"\"]\n[Black "
        "\"?\"]\n"
        "[Result \"*\"]\n[ECO \"B00\"]\n[Annotator \"\"]\n";
    EXPECT_EQ(tags.print(), printed);
    EXPECT_EQ(tags.printed_size(), printed.size());
    EXPECT_EQ(tags.get("Eco"), "");
    EXPECT_FALSE(tags.contains(""));
    tags.reset();
    EXPECT_EQ(tags.print(), unknown_game);
    tags.set(std::string(300, 'n') + "] ", std::string(99, 'v') + "\\\"");
    EXPECT_EQ(tags.print(),
              unknown_game + ("[" + std::string(153, 'n') + " \"") + std::string(99, 'v') + "/\"]\n");
    EXPECT_EQ(tags.printed_size(), tags.print().size());
}

TEST(GameTags, ReadTheStartFromFen) {
    const struct {
        const char* fen;
        Side color;
        std::int32_t number;
    } rows[] = {
        {"8/8/8/8/8/8/8/8 w - - 0 31", Side::white, 31},
        {"8/8/8/8/8/8/8/8 b - - 0 12", Side::black, 12},
        {"8/8/8/8/8/8/8/8 W - - 0 2", Side::black, 2},
        {"8/8/8/8/8/8/8/8 w - - 0 x", Side::white, 1},
        {"8/8/8/8/8/8/8/8 b - - 0 99999999999", Side::black, 1},
        {"", Side::black, 1},
    };
    GameTags tags;
    for (const auto& row : rows) {
        tags.set("FEN", row.fen);
        EXPECT_EQ(tags.start_color(), row.color) << row.fen;
        EXPECT_EQ(tags.start_move_number(), row.number) << row.fen;
    }
    tags.set("fen", "8/8/8/8/8/8/8/8 w - - 0 77");
    EXPECT_EQ(tags.start_move_number(), 1) << "the name is exact";
    tags.reset();
    EXPECT_EQ(tags.start_color(), Side::white);
}

TEST(GameTags, ReadAHeaderStrictly) {
    const GameTags tags("[White \"\xC3\x89va\"] x [FEN \"8/8/8/8/8/8/8/8 b - - 0 9\"]\n[Long \"" +
                        std::string(99, 'l') + "\xC3\xA9\"][Open \"e");
    EXPECT_EQ(tags.print(), "[White \"\xC3\x89va\"]\n[FEN \"8/8/8/8/8/8/8/8 b - - 0 9\"]\n[Long \"" +
                                std::string(99, 'l') + "\"]\n[Open \"e\"]\n");
    EXPECT_EQ(tags.start_move_number(), 9);
    for (const auto* header : {"[White \"\xE9va\"]", "[White \"\x80\"]", "[White \"a\xC3\"]"}) {
        EXPECT_EQ(test::thrown_text([header] { GameTags{std::string_view(header)}; }),
                  "Game::parse_pgn() tag value: utf-8 error");
    }
}

TEST(GameTags, MakesNamesSafe) {
    EXPECT_EQ(tag_safe("\tA \"b\"\n\tc\x7f\\d\xC3\xA9\\"), "A 'b'  c \\d\xC3\xA9/");
    EXPECT_EQ(tag_safe("A [b] c"), "A [b] c");
    EXPECT_EQ(tag_safe("A [b] 1-0"), "A (b) 1-0") << "to readers a bracket ends the tag";
    EXPECT_EQ(tag_safe(std::string(99, 'l') + "\xC3\xA9"), std::string(99, 'l'));
}

}  // namespace
}  // namespace velmora
