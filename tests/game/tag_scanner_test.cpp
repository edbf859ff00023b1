#include "game/tag_scanner.h"

#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "game/pgn_file.h"
#include "tests/support/scratch_directory.h"

namespace velmora {
namespace {

std::string text_of(const TagPairs& tags) {
    std::string text;
    for (const auto& [name, value] : tags) text.append(name).append("=").append(value).append(";");
    return text;
}

/// The headers of a text, each behind a "|", read in both ways, which must agree. One without roster tags is
/// "-".
std::string headers_of(const ScratchDirectory& files, const std::string& content) {
    TagScanner scanner(files.write("games.pgn", content));
    std::string headers, listed;
    for (GameHeader header; scanner.next(header);) {
        headers += "|" + (header.tags.empty() ? "-" : text_of(header.tags));
        if (!header.tags.empty()) listed += "|" + text_of(header.tags);
        EXPECT_EQ(content.substr(header.offset, 1), "[");
    }
    EXPECT_EQ(scanner.position(), content.size());

    std::istringstream stream(content);
    std::string streamed;
    for (auto tags = first_tags(stream); !tags.empty(); tags = next_tags(stream))
        streamed += "|" + text_of(tags);
    EXPECT_EQ(streamed, listed);
    return headers;
}

TEST(TagScanner, ListsHeaders) {
    const struct {
        const char* name;
        std::string content;
        const char* headers;
    } rows[] = {
        {"nothing", "", ""},
        {"two games, the seven tags alone",
         "[Event \"a\"]\n[ECO \"A00\"]\n[White \"x y\"]\n\n1. e4 {[%eval 1]}\n[White \"no\"]\n1-0\n\n"
         "[Event \"b\"]\n*\n",
         "|Event=a;White=x y;|Event=b;"},
        {"byte-order mark and carriage returns", "\xEF\xBB\xBF[Event \"a\"]\r\n[Site \"s\"]\r\r\n\r\n*",
         "|Event=a;Site=s;"},
        {"lines ahead of the first header", "; by hand\n\n[White \"x\"]\n*\n", "|White=x;"},
        {"the first header may lack all seven", "[FEN \"8\"]\n\n*\n[Event \"b\"]\n*\n", "|-|Event=b;"},
        {"brackets, quotes and blanks",
         "[Event  \"a [b] \\\"c\\\" \"d\" \"]\n [ White \" x \" ]\n[[Black y]]\n[Site \"\"]",
         "|Event=a b 'c' d;White=x;Black=y;Site=;"},
        {"odd values",
         "[Event \"a\\\"]\n[Site \"a\\\\\"]\n[White \"a\" b]\n[Black \"\"\"]\n[Round]\n[Date \"1\"",
         "|Event=a';Site=a\\';White=a b;Black=;Round=;Date=1;"},
        {"a name twice", "[Event \"a\"]\n[Event \"b\"]\n", "|Event=a;Event=b;"},
        {"names are exact", "[Event \"a\"]\n[white \"x\"]\n[WhiteElo \"1\"]\n[EventDate \"2\"]\n",
         "|Event=a;"},
        {"an event in a comment is no header", "[Event \"a\"]\n\n1. e4 {[%x] Event}\n e5\n*\n[Event \"b\"]\n",
         "|Event=a;|Event=b;"},
        {"a header behind a result", "[Event \"a\"]\n\n1-0 [Event \"b\"]\n", "|Event=a;"},
        {"the last line without its end", "x\n[Event \"longer than what is ahead\"]",
         "|Event=longer than what is ahead;"},
    };
    const ScratchDirectory files;
    for (const auto& row : rows) EXPECT_EQ(headers_of(files, row.content), row.headers) << row.name;
}

TEST(TagScanner, TellsWhereGamesAre) {
    const ScratchDirectory files;
    std::string content;
    for (int i = 0; content.size() < 3 * BlockReader::block_size; ++i) {
        content += "[Event \"e\"]\n[White \"w" + std::to_string(i) + "\"]\n\n1. e4 {" +
                   std::string(static_cast<std::size_t>(i % 200), 'E') + "} *\n\n";
    }
    content += std::string(BlockReader::block_size + 10, 'x') + "\n[Event \"e\"]\n[White \"last\"]\n\n*\n";
    const auto path = files.write("games.pgn", content);
    TagScanner scanner(path);
    PgnFile file;
    file.open(path);
    int number = 0;
    std::string white;
    for (GameHeader header; scanner.next(header); ++number) {
        white = header.tag("White");
        const auto text = file.read_game_at(header.offset);
        ASSERT_TRUE(text.starts_with("[Event \"e\"]\n[White \"" + white + "\"]\n")) << number;
        ASSERT_TRUE(white == "w" + std::to_string(number) || white == "last");
    }
    EXPECT_EQ(white, "last");
    EXPECT_GT(number, 1000);
    EXPECT_EQ(scanner.file_size(), content.size());
    GameHeader header;
    EXPECT_FALSE(TagScanner(files.path("absent.pgn")).next(header));
}

}  // namespace
}  // namespace velmora
