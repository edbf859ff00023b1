#include "game/foreign/foreign_file.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "game/foreign/pasted_text.h"
#include "game/pgn_error.h"
#include "game/pgn_file.h"
#include "tests/support/scratch_directory.h"

namespace velmora {
namespace {

std::string tagged(const std::string& event, const std::string& moves) {
    return "[Event \"" + event + "\"]\n[White \"w\"]\n\n" + moves + "\n\n";
}

/// A text in UTF-16, of characters below U+0800.
std::string utf16(const std::string& text, bool big_endian) {
    std::string bytes;
    for (std::size_t at = 0; at < text.size();) {
        const auto next = first_character(text.substr(at));
        const char high = static_cast<char>(next.character >> 8),
                   low = static_cast<char>(next.character & 0xFF);
        bytes += big_endian ? std::string{high, low} : std::string{low, high};
        at += next.size;
    }
    return bytes;
}

class ForeignFileTest : public testing::Test {
protected:
    /// What the survey finds: "line of the first remark:main line", "+" ahead of what is repaired.
    std::string found_in(const std::string& bytes) {
        const auto path = m_files.write("games.pgn", bytes);
        FileSurvey survey(path);
        std::string text;
        for (SurveyedGame found; survey.next(found);) {
            const auto& game = found.game;
            const auto begin = game.text.find("\n\n") + 2;
            text += std::string(found.is_repaired ? "+" : "-") +
                    std::to_string(game.remarks.empty() ? 0 : game.remarks.front().line) + ":" +
                    game.text.substr(begin, game.text.find('\n', begin) - begin) + "|";
            EXPECT_EQ(read_any_game(path, found.offset).text == game.text,
                      found.is_repaired || found.offset == 0 || bytes[found.offset] != '[')
                << game.text;
        }
        return text + std::to_string(survey.games());
    }

    ScratchDirectory m_files;
};

TEST_F(ForeignFileTest, TheSurveyFindsWhatTheStrictReaderLoses) {
    const auto fine = tagged("a", "1. e4 e5 1-0");
    const struct {
        const char* name;
        std::string bytes, found;
    } rows[] = {
        {"fine games", "\xEF\xBB\xBF; text\n" + fine + fine, "2"},
        {"castling", fine + tagged("b", "1. f4 f5 2. Nf3 Nf6 3. g3 g6 4. Bg2 Bg7 5. 0-0 *") + fine,
         "+9:1. f4 f5 2. Nf3 Nf6 3. g3 g6 4. Bg2 Bg7 5. O-O *|3"},
        {"results behind marks, and a comment among the tags",
         "[Event \"a\"]\n; x [\n[White \"w\"]\n1. e4!1-0\n" + tagged("b", "1. e4*") + fine,
         "+2:{x [} 1. e4 $1 1-0|3"},
        {"no result", tagged("b", "1. e4") + fine, "+6:1. e4 *|2"},
        {"no result at the end", fine + tagged("b", "1. e4"), "2"},
        {"a bracket in a tag and the result in another",
         "[Event \"x [2] 3\"]\n[Result \"1-0\"]\n\n1. d4 1-0\n" + fine, "+1:1. d4 1-0|2"},
        {"an open comment", tagged("b", "1. e4 {never closed") + fine, "+4:1. e4 {never closed  } *|2"},
        {"no tags behind a result", "1. e4 e5 1-0\n\n1. d4 d5\n2. c4 0-1\n\n1. c4 *",
         "-1:1. e4 e5 1-0|-3:1. d4 d5 2. c4 0-1|-6:1. c4 *|3"},
        {"a header alone", "[Event \"b\"]\n\n" + fine, "+3:*|2"},
        {"moves behind a tag in its line", "[Event \"b\"] 1. e4 1\u20130 {x}\n" + fine, "+1:1. e4 {x} 1-0|2"},
        {"UTF-16, low bytes first", "\xFF\xFE" + utf16(tagged("\u00E9", "1. e4 {\u0159} *") + fine, false),
         "+1:1. e4 {\u0159} *|+6:1. e4 e5 1-0|2"},
        {"UTF-16, no mark", utf16(tagged("\u00E9", "1. e4 *"), true), "+1:1. e4 *|1"},
        {"half a character of UTF-16", "\xFF\xFE" + utf16(tagged("b", "1. e4 *"), false) + "\xD8",
         "+1:1. e4 *|1"},
        {"zeros", std::string(10'000, '\0'), "0"},
        {"a line of a megabyte", fine + std::string(1 << 20, '\0') + "\n" + fine, "2"},
        {"half a file", fine + tagged("b", "1. e4 e5 2. Nf3 {wh"), "2"},
    };
    for (const auto& row : rows) EXPECT_EQ(found_in(row.bytes), row.found) << row.name;
}

TEST_F(ForeignFileTest, GamesAreReadByTheReaderThatKeepsMore) {
    const auto fine = tagged("a", "1. e4! e5 {\xC3\xA9} (1... c5) 1-0");
    const auto illegal = tagged("b", "1. e4 Sf6 2. Nf3 1-0");
    const auto damaged = tagged("c", "1. e4 \xC2\xBD-\xC2\xBD");
    const auto hopeless = tagged("d", "e9 \xE9 *");
    const auto path = m_files.write("games.pgn", fine + illegal + damaged + hopeless);
    PgnFile strict;
    strict.open(path);
    EXPECT_EQ(read_any_game(path, 0).text, strict.read_game_at(0)) << "to the byte";
    EXPECT_EQ(read_any_game(path, fine.size()).text, strict.read_game_at(fine.size()))
        << "what no reader can mend stays as it is";
    const auto repaired = read_any_game(path, fine.size() + illegal.size());
    EXPECT_TRUE(repaired.text.ends_with("1. e4 1/2-1/2\n\n"));
    EXPECT_EQ(repaired.remarks.size(), 1U);
    EXPECT_THROW(read_any_game(path, fine.size() + illegal.size() + damaged.size()), pgn_error);
    EXPECT_THROW(read_any_game(m_files.path("absent.pgn"), 0), pgn_error);
}

TEST(PastedText, IsAPositionOrGamesOrTellsWhyNot) {
    using Kind = PastedText::Kind;
    const std::string fen = "4k3/8/8/8/8/8/4P3/4K3 w - - 0 1";
    const struct {
        std::string text;
        Kind kind;
        std::string result;  // position, main lines or fault
    } rows[] = {
        {" " + fen + "\n", Kind::position, fen},
        {"4k3/8/8/8/8/8/4P3/4K3 w - - bm e4; id \"x\";\nmore", Kind::position,
         "4k3/8/8/8/8/8/4P3/4K3 w - - bm e4; id \"x\";"},
        {"4k3/8/8/8/8/8/4P3/4K2 w - -", Kind::nothing, "The position can't be set up: "},
        {"1. e4 e5 2. Nf3", Kind::games, "1. e4 e5 2. Nf3 *"},
        {"e4 e5 Nf3", Kind::games, "1. e4 e5 2. Nf3 *"},
        {"Look:\n\n" + tagged("a", "1. e2e4! 1-0") + tagged("b", "1. d4 *"), Kind::games,
         "1. e2e4! 1-0|1. d4 *"},
        {"hello\nworld", Kind::nothing,
         "No game was found: line 1, column 1, move 1.: a word among the moves, which is a comment now: "
         "hello (2 times)"},
        {"1. e5", Kind::nothing,
         "No game was found: line 1, column 4, move 1.: no move that can be made, which ends the line; the "
         "rest of it "
         "is a comment: e5"},
        {" \n", Kind::nothing, "There is no text"},
    };
    for (const auto& row : rows) {
        const auto pasted = read_pasted(row.text);
        EXPECT_EQ(pasted.kind, row.kind) << row.text;
        std::string result = pasted.position;
        for (const auto& game : pasted.games) {
            const auto begin = game.text.find("\n\n") + 2;
            result +=
                (result.empty() ? "" : "|") + game.text.substr(begin, game.text.find('\n', begin) - begin);
        }
        if (row.kind == Kind::nothing) {
            EXPECT_TRUE(pasted.fault.starts_with(row.result)) << pasted.fault;
        } else {
            EXPECT_EQ(result, row.result);
        }
    }
}

}  // namespace
}  // namespace velmora
