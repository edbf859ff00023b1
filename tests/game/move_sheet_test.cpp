#include "game/move_sheet.h"

#include <gtest/gtest.h>

#include "game/comment_parts.h"
#include "game/game.h"
#include "game/move_symbols.h"

namespace velmora {
namespace {

std::string in_short(const SheetItem& item) {
    switch (item.kind) {
        case SheetItemKind::move:
            return (item.numbered ? item.number : "") + item.text + std::string(sign_of(item.glyph));
        case SheetItemKind::comment:
            return "{" + item.text + "}";
        case SheetItemKind::chip:
            return "<" + item.text + ">";
        case SheetItemKind::variation_begin:
            return "(" + std::to_string(item.depth);
        case SheetItemKind::variation_end:
            return ")";
        case SheetItemKind::result:
            return "=" + item.text;
    }
    return {};
}

std::string sheet_of(std::string_view pgn) {
    Game game;
    game.parse_pgn(pgn);
    const MoveSheet sheet(game.tree());
    std::string text;
    for (const auto& item : sheet.items()) {
        if (!text.empty()) text += ' ';
        text += in_short(item);
    }
    return text;
}

TEST(MoveSheet, ShowsTheTreeInReadingOrder) {
    EXPECT_EQ(sheet_of(""), "");
    EXPECT_EQ(
        sheet_of(
            "1. e4 $1 {[%clk 0:05:12] best by\ntest [%eval 0.35,20]} e5 (1... c5 2. Nf3 (2. c3 {Alapin} d5) "
            "Nc6) 2. Nf3 Nc6 {[%csl Gd4][%emt 0:0:5.25]} 1-0"),
        "1.e4! <+0.35> <0:05:12> {best by test} 1...e5 (1 1...c5 2.Nf3 (2 2.c3 {Alapin} 2...d5 ) 2...Nc6 ) "
        "2.Nf3 Nc6 <5.2s> =1-0");
    EXPECT_EQ(sheet_of("{Intro} 1. e4 (1. d4 d5 2. c4) e5 $140 {x} {White resigns} 0-1"),
              "{Intro} 1.e4 (1 1.d4 d5 2.c4 ) 1...e5$140 {x White resigns} =0-1");
    EXPECT_EQ(
        sheet_of(
            "[SetUp \"1\"]\n[FEN \"4k3/8/8/8/8/8/8/4K2R b - - 0 40\"]\n\n40... Kd8 (40... Kf8) 41. Kd2 *"),
        "40...Kd8 (1 40...Kf8 ) 41.Kd2");
}

TEST(MoveSheet, AMoveInWordsAndItsNeighbours) {
    Game game;
    game.parse_pgn("1. e4 e5 $6 {[%eval #-3][%clk 0:01:00]} (1... c5 {[%emt 1:05]}) (1... e6) 2. Nf3 *");
    std::string ending = "{Black resigns} 1-0";
    game.to_end();
    game.set_result(ending);
    const MoveSheet sheet(game.tree());
    std::vector<std::string> words;
    std::vector<std::string> neighbours;
    const auto name = [&sheet](std::int32_t node) {
        return node < 0 ? "-" : sheet.items()[sheet.index_of(node)].text;
    };
    for (std::size_t index = 0; index < sheet.items().size(); ++index) {
        const auto& item = sheet.items()[index];
        if (item.kind != SheetItemKind::move) continue;
        EXPECT_EQ(sheet.index_of(item.node), index);
        words.push_back(sheet.in_words(index));
        neighbours.push_back(name(item.above) + name(item.below));
    }
    EXPECT_EQ(words,
              (std::vector<std::string>{"1. e4", "1... e5, dubious move, #-3, clock 0:01:00",
                                        "1... c5, took 1:05, variation", "1... e6, variation", "2. Nf3"}));
    EXPECT_EQ(neighbours, (std::vector<std::string>{"--", "-c5", "e5e6", "c5-", "--"}));
    EXPECT_EQ(in_short(sheet.items().back()), "=1-0");
    EXPECT_EQ(in_short(sheet.items()[sheet.items().size() - 2]), "{Black resigns}");
    EXPECT_EQ(sheet.index_of(999), MoveSheet::none);
}

TEST(CommentParts, ValuesAreReadOrLeftOut) {
    struct Row {
        std::string (*text)(std::string_view);
        const char* value;
        const char* shown;
    };
    const Row rows[] = {
        {evaluation_text, "0.349", "+0.35"},
        {evaluation_text, "-12", "-12.00"},
        {evaluation_text, "-0.004", "0.00"},
        {evaluation_text, "+1.5, 30", "+1.50"},
        {evaluation_text, "#4", "#4"},
        {evaluation_text, "mate -2", "#-2"},
        {evaluation_text, "#x", ""},
        {evaluation_text, "nan", ""},
        {evaluation_text, "", ""},
        {evaluation_text, "1e300", ""},
        {clock_text, "1:02:03.4", "1:02:03.4"},
        {clock_text, "soon", ""},
        {clock_text, "1:2:3:4", ""},
        {elapsed_text, "0:0:59.95", "59.9s"},
        {elapsed_text, "3", "3s"},
        {elapsed_text, "0:1:5", "1:05"},
        {elapsed_text, "1:0:5", "1:00:05"},
        {elapsed_text, "-3", ""},
        {elapsed_text, "99999999", ""},
    };
    for (const Row& row : rows) EXPECT_EQ(row.text(row.value), row.shown) << row.value;
    EXPECT_EQ(split_comment("a [%x \"]\" y]b[%open").text, "a b");
    EXPECT_EQ(split_comment("[%cal Gd4]").annotations.front().value, "Gd4");
}

}  // namespace
}  // namespace velmora
