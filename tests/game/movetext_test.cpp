// The printer and the wrapper, without tags and positions.

#include <string>

#include <gtest/gtest.h>

#include "game/game_tree.h"
#include "game/move_section.h"
#include "game/movetext_wrap.h"
#include "game/movetext_writer.h"

namespace velmora {
namespace {

GameTree tree_of(std::string_view movetext, Side color = Side::white, std::int32_t number = 1) {
    PgnTokenizer tokenizer;
    MoveSection section;
    section.set_start(color, number);
    section.load(tokenizer.tokenize(movetext));
    GameTree tree;
    tree.rebuild(section);
    return tree;
}

TEST(Movetext, Prints) {
    constexpr Side white = Side::white, black = Side::black;
    const struct {
        const char* name;
        Side color;
        const char *text, *printed;
    } rows[] = {
        {"result", white, "1. e4 e5 2. Nf3 1-0", "1.e4 e5 2.Nf3 1-0"},
        {"nothing", white, "", " *"},
        {"glyph ahead of comment", white, "e4 {text} $1 e5", "1.e4 $1 {text} 1...e5 *"},
        {"Black begins", black, "12... Nf6", "12... Nf6 *"},
        {"Black begins behind a comment", black, "{text} Nf6", "{text} \n 12...Nf6 *"},
        {"Black's variations", white, "e4 e5 (c5 Nf3 (Nc3)) (d5) Nf3",
         "1.e4 e5 ( 1... c5 2.Nf3 ( 2.Nc3)) ( 1... d5) 2.Nf3 *"},
        {"the doubled number", white, "e4 {c} e5 (c5)", "1.e4 {c} 1...e5 ( 1... 1...c5) *"},
        {"alternatives to the first move are not printed", white, "e4 (d4 d5) e5", "1.e4 e5 *"},
        {"result within a variation", white, "e4 e5 (c5 0-1", "1.e4 e5 ( 1... c5 0-1) *"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(tree_of(row.text, row.color, row.color == white ? 1 : 12).movetext(), row.printed)
            << row.name;
    }
}

TEST(Movetext, PrintsVeryDeepTrees) {
    constexpr int depth = 50000;
    GameTree tree;
    MoveSectionElement move;
    move.san = "a";
    auto at = tree.add_child(0, move);
    for (int i = 0; i < depth; ++i) {
        tree.add_child(at, move);
        at = tree.add_child(at, move);
    }
    const auto text = tree.movetext();
    EXPECT_EQ(std::count(text.begin(), text.end(), '('), depth);
    EXPECT_EQ(std::count(text.begin(), text.end(), ')'), depth);
}

TEST(Movetext, Wraps) {
    const std::string x70(70, 'x');
    const std::string x79(79, 'x');
    const std::string x100(100, 'x');
    const struct {
        const char* name;
        std::string text, wrapped;
    } rows[] = {
        {"short enough", x79 + "x", x79 + "x"},
        {"at the last blank", x70 + " aaa bbb ccc ddd", x70 + " aaa bbb\nccc ddd"},
        {"a blank in column 81", x79 + "x rest", x79 + "x\nrest"},
        {"a word longer than a line", "a " + x100 + " b", "a\n" + x100 + "\nb"},
        {"no blank at all ends in a line end", x100, x100 + "\n"},
        {"not within an annotation", x70 + " [%a b c d e f g h] i j", x70 + " \n[%a b c d e f g h] i j"},
        {"ahead of the later of two", x70 + "[%a][%b][%c]z", x70 + "[%a][%b]\n[%c]z"},
        {"other brackets are text", x70 + " [a b c d e f g]", x70 + " [a b c d\ne f g]"},
        {"an annotation without end holds on to all that follows", "a [%b " + x100 + " c " + x100 + " d",
         "a \n[%b " + x100 + " c " + x100 + " d\n"},
        {"no line begins with a percent sign", x70 + " aaaa %bbbbbbbb", x70 + "\naaaa %bbbbbbbb"},
    };
    for (const auto& row : rows) EXPECT_EQ(wrap_movetext(row.text), row.wrapped) << row.name;
}

}  // namespace
}  // namespace velmora
