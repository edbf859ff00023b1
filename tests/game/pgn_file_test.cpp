#include "game/pgn_file.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "game/pgn_error.h"
#include "tests/support/scratch_directory.h"

namespace velmora {
namespace {

const std::string game_a = "[Event \"a\"]\n\n1. e4 e5 1-0\n";
const std::string game_z = "[Event \"z\"]\n\n1. d4 d5 1/2-1/2\n";

std::string repeated(std::size_t count, char c = 'c') { return std::string(count, c); }

class PgnFileTest : public testing::Test {
protected:
    /// All that read_game() gives, each behind a "|", faults with an "!" ahead of them.
    std::string read_all(const std::string& content) {
        PgnFile file;
        file.open(m_files.write("games.pgn", content));
        std::string games;
        while (true) {
            try {
                const auto text = file.read_game();
                if (text.empty()) return games;
                games += "|" + text;
            } catch (const pgn_error& error) {
                games += "|!" + error.text();
            }
        }
    }

    /// The names of the events that next_game() gives, one letter each.
    std::string events_of(const std::string& content) {
        PgnFile file;
        file.open(m_files.write("games.pgn", content));
        std::string events;
        for (auto text = file.next_game(); !text.empty(); text = file.next_game()) {
            EXPECT_TRUE(text.starts_with("[Event \"")) << text.substr(0, 60);
            events += text.substr(8, 1);
        }
        return events;
    }

    ScratchDirectory m_files;
};

TEST_F(PgnFileTest, CutsGames) {
    const struct {
        const char* name;
        std::string content, games;
    } rows[] = {
        {"two games", "x[A]\n1. e4 1-0\n[B]\n*\n", "|[A]\n1. e4 1-0\n\n|[B]\n*\n\n"},
        {"Latin-1 in a tag, a comment, a header, the moves", "[\xE9]\xE9\xE9 1. e4 {\xE9} e5\xE9 1-0",
         "|![\xE9] 1. e4 {\xE9} e5?????\n\n"},
        {"a tag of 256 bytes", "[" + repeated(256) + "] *", "|[" + repeated(256) + "] *\n\n"},
        {"a tag of 257 bytes", "[" + repeated(257) + "] *", "|![" + repeated(257) + "ERROR] \n\n * \n\n"},
        {"a comment of 1,024 bytes", "[A] 1 {" + repeated(1024) + "} *",
         "|[A] 1 {" + repeated(1024) + "} *\n\n"},
        {"the last of 1,024 bytes is one that the cutter looks at", "[A] 1 {" + repeated(1023) + "%} *",
         "|[A] 1 {" + repeated(1023) + "%} *\n\n"},
        {"a comment of 1,025 bytes", "[A] 1 {" + repeated(1025) + "} *",
         "|![A] 1 {" + repeated(1025) + "ERROR} *\n\n"},
        {"a comment of 1,025 bytes in the header", "[A] {" + repeated(1025) + "} *",
         "|![A] {" + repeated(1025) + "ERROR} *\n\n"},
    };
    for (const auto& row : rows) EXPECT_EQ(read_all(row.content), row.games) << row.name;
}

TEST_F(PgnFileTest, LosesTheDamagedGameAlone) {
    const std::string b = "[Event \"b\"]\n[Site \"?\"]\n";
    const struct {
        const char* name;
        std::string damaged;
        const char* events;
    } rows[] = {
        {"nothing wrong", b + "\n1. e4 *\n", "abz"},
        {"long tag", b + "[X \"" + repeated(300) + "\"]\n[Y \"\"]\n\n1. e4 *\n", "az"},
        {"long comment", b + "\n1. e4 {" + repeated(2000) + "\n[%cal Ge2e4]} e5 1-0\n", "az"},
        {"Latin-1", b + "\n1. e4\xE9 e5 {\n[%cal Ge2e4]} 1-0\n", "az"},
        {"open comment, long enough to tell",
         b + "\n1. e4 {" + repeated(500) + "\n*\n\n" + game_z + "\n" + "[Event \"y\"]\n1. e4" +
             repeated(900, '\n') + " *\n",
         "azyz"},
        {"open comment that the end of the file cuts", b + "\n1. e4 { e5 *\n", "abz"},
        {"bytes", std::string("\0\x01\xFF[\0\xFE]\n\x80 7 \x80\n", 14), "az"},
        {"byte-order mark", "\xEF\xBB\xBF" + b + "\n*\n", "abz"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(events_of(std::string(game_a).append(row.damaged).append(game_z)), row.events) << row.name;
    }
    EXPECT_EQ(events_of(game_a + game_z.substr(0, game_z.size() - 1)), "az") << "no final newline";
}

TEST_F(PgnFileTest, CrossesBlocks) {
    // Every length puts the ends of the blocks at another place of a game.
    const std::string game = "[Event \"b\"]\n%no\r\n\n1. e4 {[%eval 1]\n%no\n} 1... e5 1/2-1/2\n";
    const std::string cut = "|[Event \"b\"]\n\n1. e4 {[%eval 1]\n} 1... e5 1/2-1/2\n\n";
    for (std::size_t padding = 0; padding < 60; ++padding) {
        std::string content(padding, ' ');
        while (content.size() < 2 * BlockReader::block_size + 100) content += game;
        std::string expected;
        for (std::size_t i = padding; i < content.size(); i += game.size()) expected += cut;
        EXPECT_TRUE(read_all(content) == expected) << padding;
    }
}

TEST_F(PgnFileTest, GoesToGames) {
    PgnFile file;
    EXPECT_EQ(file.first_game(), "") << "never opened";
    const auto path = m_files.write("games.pgn", "x\n" + game_a + "\n" + game_z);
    EXPECT_TRUE(file.open(path));
    const auto text = file.next_game();
    const auto first = file.game_offset();
    const auto last = file.next_game();
    EXPECT_EQ(first, 2U);
    EXPECT_EQ(file.read_game_at(first), text);
    EXPECT_EQ(file.read_game_at(first + 1), last) << "the next one behind";
    EXPECT_EQ(file.read_game_at(1U << 30), "");
    EXPECT_EQ(file.first_game(), text);
    EXPECT_EQ(file.game_at(0), text);
    EXPECT_EQ(file.game_at(99), last) << "the last one of a shorter file";

    EXPECT_FALSE(file.open(m_files.path("absent.pgn")));
    EXPECT_EQ(file.first_game(), text) << "the file before";
    EXPECT_FALSE(file.open(std::filesystem::temp_directory_path())) << "a directory";
}

TEST_F(PgnFileTest, ReportsTheDamagedGameOfANumber) {
    PgnFile file;
    file.open(m_files.write("games.pgn", "[Event \"b\"]\n1.\x80 *\n" + game_a + "[Event \"b\"]\n1.\x80 *\n"));
    EXPECT_EQ(file.game_at(1), "[Event \"a\"]\n\n1. e4 e5 1-0\n\n");
    EXPECT_THROW(file.game_at(2), pgn_error);
}

TEST_F(PgnFileTest, Appends) {
    PgnFile file;
    EXPECT_TRUE(file.close_output()) << "nothing open";
    for (const auto* text : {"one\n", "two\n"}) {
        EXPECT_TRUE(file.open_for_writing(m_files.path("out.pgn")));
        EXPECT_TRUE(file.write(text));
        EXPECT_TRUE(file.close_output());
    }
    EXPECT_EQ(m_files.content("out.pgn"), "one\ntwo\n");
    EXPECT_FALSE(file.open_for_writing(m_files.path("no/directory.pgn")));
    EXPECT_FALSE(file.write("lost"));
    if (std::filesystem::exists("/dev/full")) {
        EXPECT_TRUE(file.open_for_writing("/dev/full"));
        file.write("lost");
        EXPECT_FALSE(file.close_output()) << "a full disk is told";
    }
}

}  // namespace
}  // namespace velmora
