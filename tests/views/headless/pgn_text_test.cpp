#include "views/text/pgn_text.h"

#include <tuple>

#include <gtest/gtest.h>

namespace velmora {
namespace {

const std::string game = "[White \"J\xC3\xBC\"]\n\n1.e4 e5 ( 1... c5) 2.Nf3\nNc6{ok} *";

TEST(PgnText, ClickFindsTheEndOfItsWord) {
    struct Row {
        const char* name;
        const char* clicked;      // the click is on the first character of this text ...
        std::size_t further;      // ... or so many behind it
        const char* end_of_word;  // what stands behind the word
    };
    for (const Row& row : {
             Row{"move number with its move", "1.e4", 0, " e5"},
             Row{"inside a word", "1.e4", 3, " e5"},
             Row{"the blank ahead selects the next word", " e5", 0, " ( 1"},
             Row{"the newline ahead too", "\n1.e4", 0, " e5"},
             Row{"parenthesis ends a word", "c5)", 1, ") 2."},
             Row{"on the parenthesis", ") 2.", 0, ") 2."},
             Row{"an opening one", "( 1...", 0, "( 1..."},
             Row{"brace ends a word", "Nc6{", 1, "{ok}"},
             Row{"in the tags, behind a letter of two bytes", "\"]", 1, "\n\n1"},
             Row{"first word", "[White", 0, " \"J"},
         }) {
        const std::size_t byte = game.find(row.clicked) + row.further;
        // A letter of two bytes stands in the tags.
        const std::size_t character = byte > 10 ? byte - 1 : byte;
        EXPECT_EQ(clicked_offset(game, character), std::int64_t(game.find(row.end_of_word)) - 1) << row.name;
    }
    EXPECT_EQ(clicked_offset(game, 1000), std::int64_t(game.size()) - 1) << "beyond the end: the last word";
    EXPECT_EQ(clicked_offset("", 0), -1);
    EXPECT_EQ(clicked_offset(" a", 0), 1);
}

TEST(PgnText, ChangeIsTheMiddleThatDiffers) {
    struct Row {
        const char* name;
        std::string before, after;
        std::size_t front, back;
        std::string inserted;
    };
    for (const Row& row : {
             Row{"a move added", "1.e4 *", "1.e4 e5 *", 5, 1, "e5 "},
             Row{"nothing", "abc", "abc", 3, 0, ""},
             Row{"from nothing", "", "abc", 0, 0, "abc"},
             Row{"to nothing", "abc", "", 0, 0, ""},
             Row{"repeated text is not counted twice", "aa", "aaa", 2, 0, "a"},
             Row{"other lead byte", "a\xC3\xBC", "a\xC5\xBC", 1, 0, "\xC5\xBC"},
             Row{"other continuation byte", "\xC3\xBC!", "\xC3\xBD!", 0, 1, "\xC3\xBD"},
             Row{"characters are counted", "\xC3\xBC\xC3\xBC-", "\xC3\xBC\xC3\xBC+-", 2, 1, "+"},
         }) {
        const TextChange change = change_between(row.before, row.after);
        EXPECT_EQ(std::tuple(change.front, change.back, change.inserted),
                  std::tuple(row.front, row.back, row.inserted))
            << row.name;
    }
}

}  // namespace
}  // namespace velmora
