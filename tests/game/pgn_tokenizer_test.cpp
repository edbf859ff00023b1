#include "game/pgn_tokenizer.h"

#include <map>
#include <string>

#include <gtest/gtest.h>

namespace velmora {
namespace {

/// Tokens in one line: the text of a token behind a letter for its kind where the text alone doesn't tell.
std::string tokens_of(std::string_view text) {
    static const std::map<TokenKind, std::string> marks{
        {TokenKind::tag_name, "N:"}, {TokenKind::tag_value, "V:"}, {TokenKind::integer, "I:"},
        {TokenKind::san, "S:"},      {TokenKind::comment, "C:"},   {TokenKind::result, "R:"}};
    PgnTokenizer tokenizer;
    std::string line;
    for (const auto& token : tokenizer.tokenize(text)) {
        const auto mark = marks.find(token.kind);
        if (!line.empty()) line += '|';
        line += (mark == marks.end() ? "" : mark->second) + std::string(token.text);
    }
    return line;
}

TEST(PgnTokenizer, CutsTexts) {
    const struct {
        const char *text, *tokens;
    } rows[] = {
        {"", ""},
        {"1. e4 e5!? 2.Nf3+", "I:1|.|S:e4|S:e5|I:2|.|S:Nf3+"},
        {"e8=Q# O-O-O e2:d3 a_b", "S:e8=Q#|S:O-O-O|S:e2:d3|S:a_b"},
        {"0-0 0-0-0", "I:0|S:-0|I:0|S:-0-0"},
        {"e4 ; not a comment", "S:e4|S:not|S:a|S:comment"},
        // Results end the scan wherever they stand, also within a variation.
        {"e4 (d4 1-0) e5", "S:e4|(|S:d4|R:1-0"},
        {"1/2-1/2 x", "R:1/2-1/2"},
        {"0-1", "R:0-1"},
        {"* e4", "R:*"},
        {"1-", "I:1|S:-"},
        {"1/2-1/", "I:1|I:2|S:-1"},
        {"11-0", "I:11|S:-0"},
        {"10.", "I:10|."},
        {"$1$ $14", "$1|$|$14"},
        // Comments
        {"{a {b} c}", "{|C:a {b|}|S:c|}"},
        {"{}", "{|C:|}"},
        {"{a\tb\r\nc}", "{|C:a b c|}"},
        {"{open 1-0", "{|C:open 1-0"},
        {"<a } b> <c> {d > e}", "{|C:a |}|S:b|}|{|C:c|}|{|C:d > e|}"},
        {"{caf\xE9 \xC3\xA9 \xE2\x99\x94 \xF0\x9F\x99\x82 \xC3}",
         "{|C:caf? \xC3\xA9 \xE2\x99\x94 \xF0\x9F\x99\x82 ?|}"},
        // Tags
        {"[White \"A B\"]", "[|N:White|V:A B|]"},
        {R"([White "a \"b\" c"])", R"([|N:White|V:a \"b\" c|])"},
        {"[WhiteElo \"\"]\n[Black \"y\"]", "[|N:WhiteElo|V:|]|[|N:Black|V:y|]"},
        {R"([White ""Deep" X"])", "[|N:White|V:Deep|S:X|]"},
        // The value is looked for too far ahead when blanks stand before the name.
        {"[ White \"x\"]", "[|N:White|V:e |S:x|]"},
        {"[White \"open", "[|N:White|V:open"},
        {"[", "[|N:|V:"},
        {"[White", "[|N:White|V:"},
        {"\xE9\xFF%&", ""},
    };
    for (const auto& row : rows) EXPECT_EQ(tokens_of(row.text), row.tokens) << row.text;
}

TEST(PgnTokenizer, CutsLongTextsBeforeItCleansThem) {
    const std::string letters(99, 'a');
    EXPECT_EQ(tokens_of("[X \"" + letters + "\xC3\xA9\"]"), "[|N:X|V:" + letters + "?|]");
    EXPECT_EQ(tokens_of("{" + std::string(3000, 'c') + "}"), "{|C:" + std::string(2048, 'c') + "|}");
}

}  // namespace
}  // namespace velmora
