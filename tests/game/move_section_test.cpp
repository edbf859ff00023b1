#include "game/move_section.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/support/thrown_text.h"

namespace velmora {
namespace {

/// One word an element: its text, "^" and the parent, colour and number; then glyph, comment and children.
/// The children of the root come last.
std::string listing(std::string_view movetext, Side color = Side::white, std::int32_t number = 1) {
    PgnTokenizer tokenizer;
    MoveSection section;
    section.set_start(color, number);
    section.load(tokenizer.tokenize(movetext));
    std::string text;
    for (std::size_t i = 1; i < section.elements().size(); ++i) {
        const auto& element = section.elements()[i];
        if (element.type == ElementType::begin_variation) text += '(';
        if (element.type == ElementType::end_variation) text += ')';
        text += element.san + element.result + "^" + std::to_string(element.pid);
        if (element.color) text += element.color == Side::white ? "w" : "b";
        if (element.color) text += std::to_string(element.move_number);
        text += element.nag;
        if (!element.comment.empty()) text += "{" + element.comment + "}";
        for (const auto child : element.children) text += ">" + std::to_string(child);
        text += ' ';
    }
    for (const auto child : section.elements()[0].children) text += ">" + std::to_string(child);
    return text;
}

TEST(MoveSection, LinksMoves) {
    const struct {
        const char *name, *text, *elements;
    } rows[] = {
        {"no marker for a star", "1. e4 e5 *", "e4^0w1>2 e5^1b1 >1"},
        {"numbers are counted, but for the first", "7. e4 9. e5 3. Nf3", "e4^0w7>2 e5^1b7>3 Nf3^2w8 >1"},
        {"a number too large is none", "99999999999. e4 e5", "e4^0w0>2 e5^1b0 >1"},
        {"the largest number stays", "2147483647. e4 e5 d4",
         "e4^0w2147483647>2 e5^1b2147483647>3 d4^2w2147483647 >1"},
        {"the doubled number of the printer", "1. e4 {c} e5 ( 1... 1...c5)",
         "e4^0w1{c}>2>4 e5^1b1 (^2 c5^1b1 )^2 >1"},
        {"a number behind a variation", "1. e4 (d4) 1... e5", "e4^0w1>5 (^1 d4^0b1 )^1 e5^1b1 >1>3"},
        {"a dangling number is a move without text", "1. e4 2. (3. d4)", "e4^0w1>2>4 ^1b1 (^2 d4^1b1 )^2 >1"},
        {"a number that no move follows any more", "1. e4 {a} e5 {b} 2. {c} 1-0",
         "e4^0w1{a}>2 e5^1b1{b c}>3 1-0^2 >1"},
        {"a number alone", "12... *", "*^0 >1"},
        {"a second comment or glyph replaces the first", "e4 $1 $2 {a} {b}", "e4^0w1$2{b} >1"},
        {"comments at parentheses are lost", "e4 ({a} d4 {b}) {c} e5",
         "e4^0w1>5 (^1{a} d4^0b1{b} )^1{c} e5^1b1 >1>3"},
        {"a result alone", "*", "*^0 >1"},
        {"the text ends within a variation", "e4 (d4 d5", "e4^0w1 (^1 d4^0b1>4 d5^3w2 >1>3"},
        {"a stray parenthesis", "e4 ) e5", "e4^0w1>2 e5^1b1 >1"},
        {"empty variations", "e4 (()) e5", "e4^0w1>6 (^1 (^1 )^1 )^1 e5^1b1 >1"},
    };
    for (const auto& row : rows) EXPECT_EQ(listing(row.text), row.elements) << row.name;
    EXPECT_EQ(listing("Nf6 13. Nc3 c5", Side::black, 12), "Nf6^0b12>2 Nc3^1w13>3 c5^2b13 >1")
        << "Black begins";
}

TEST(MoveSection, RefusesVariationsThatCannotBe) {
    const auto nested = [](int depth) {
        std::string text = "e4 ";
        for (int i = 0; i < depth; ++i) text += "(d4 ";
        return text;
    };
    EXPECT_NO_THROW(listing(nested(500)));
    for (const auto& text : {std::string("(e4)"), nested(501), "e4" + std::string(100000, '(')}) {
        EXPECT_EQ(test::thrown_text([&text] { listing(text); }), "MoveSection::load invalid subvariation");
    }
}

}  // namespace
}  // namespace velmora
