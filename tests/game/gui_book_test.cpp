#include "game/gui_book.h"

#include <filesystem>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "game/game_tags.h"
#include "tests/support/scratch_directory.h"

namespace velmora {
namespace {

constexpr const char* games =
    "[Event \"1\"]\n\n1. e4 e5 (1... c5) 2. Nf3 *\n"
    "[Event \"2\"]\n\n1. d4\xE9 *\n"
    "[Event \"3\"]\n\n1. d4 d5 2. Ke3 Nf6 *\n"
    "[Event \"4\"]\n\n1. d4 {"
    "\xE9"
    "}\xE9 *\n"
    "[Event \"5\"]\n[FEN \"4k3/8/8/8/8/8/4P3/4K3 w - - 0 1\"]\n\n1. e3 *\n"
    "[Event \"6\"]\n\n(1. e4) *\n";

constexpr const char* positions =
    "4k3/8/8/8/8/8/4P3/4K3 w - - bm e4; id \"one\";\n"
    "\n"
    "nonsense\r\n"
    "4k3/4p3/8/8/8/8/8/4K3 b - - acd 3;";

class GuiBookTest : public testing::Test {
protected:
    GuiBookTest() { m_position.set_fen("7k/8/8/8/8/8/8/K7 w - - 0 1"); }

    std::string played(std::int32_t entry) {
        m_book.play_entry(m_position, entry);
        return m_position.moves_text();
    }
    std::string fen_of(std::int32_t entry) {
        m_book.play_entry(m_position, entry);
        return m_position.fen();
    }

    ScratchDirectory m_files;
    ChessPosition m_position;
    GuiBook m_book;
};

TEST_F(GuiBookTest, PlaysTheMainLineOfGames) {
    m_book.set_path(m_files.write("book.pgn", games));
    EXPECT_EQ(m_book.count(), 4) << "damaged games do not count";
    EXPECT_EQ(played(1), "e2e4 e7e5 g1f3");
    testing::internal::CaptureStderr();
    EXPECT_EQ(played(2), "d2d4 d7d5") << "as far as the moves are legal";
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "GuiBook::setup()   error\n");
    EXPECT_EQ(played(3), "e2e3");
    EXPECT_EQ(m_position.start_fen(), "4k3/8/8/8/8/8/4P3/4K3 w - - 0 1");
    testing::internal::CaptureStderr();
    EXPECT_EQ(fen_of(4), GameTags::standard_fen);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "GuiBook::setup()   error\n");
    for (const auto entry : {5, 0, -1}) EXPECT_EQ(fen_of(entry), GameTags::standard_fen) << entry;
    std::filesystem::remove(m_files.path("book.pgn"));
    EXPECT_EQ(fen_of(1), GameTags::standard_fen) << "gone meanwhile";
}

TEST_F(GuiBookTest, SetsPositionsOfLines) {
    m_book.set_path(m_files.write("book.epd", positions));
    EXPECT_EQ(m_book.count(), 4) << "empty lines count";
    EXPECT_EQ(fen_of(1), "4k3/8/8/8/8/8/4P3/4K3 w - - 0 1");
    EXPECT_EQ(fen_of(2), GameTags::standard_fen);
    for (const auto entry : {4, 5, 100}) EXPECT_EQ(fen_of(entry), "4k3/4p3/8/8/8/8/8/4K3 b - - 0 1") << entry;
    EXPECT_EQ(fen_of(0), GameTags::standard_fen);
}

TEST_F(GuiBookTest, DrawsAtRandom) {
    m_book.set_path(m_files.write("book.epd", "4k3/8/8/8/8/8/8/4K3 w - -\n4k3/8/8/8/8/8/8/3K4 w - -\n"));
    std::set<std::int32_t> drawn;
    m_book.play_again(m_position);
    EXPECT_GE(m_book.index(), 1) << "the first time it draws";
    for (int i = 0; i < 100; ++i) {
        m_book.play_random(m_position);
        drawn.insert(m_book.index());
        const auto fen = m_position.fen();
        m_book.play_again(m_position);
        EXPECT_EQ(m_position.fen(), fen);
    }
    EXPECT_EQ(drawn, (std::set<std::int32_t>{1, 2}));
}

TEST_F(GuiBookTest, DoesWithoutAFile) {
    const auto other = m_files.write("book.PGN", games);
    testing::internal::CaptureStderr();
    for (const auto& path :
         {m_files.path("absent.pgn"), m_files.path("absent.epd"), other, m_files.write("e.pgn", "")}) {
        m_book.set_path(path);
        EXPECT_EQ(m_book.path(), "") << path;
        EXPECT_EQ(m_book.count(), 0);
        EXPECT_EQ(fen_of(1), GameTags::standard_fen);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "\nbook " + m_files.path("absent.epd") + " error\n");
    m_book.set_path(m_files.write("book.pgn", games));
    m_book.set_path(".epd");
    EXPECT_EQ(m_book.count(), 4) << "four characters change nothing";
    std::stop_source leaving;
    leaving.request_stop();
    GuiBook unread(leaving.get_token());
    unread.set_path(m_book.path());
    EXPECT_EQ(unread.count(), 0) << "nobody waits for it any more";
}

}  // namespace
}  // namespace velmora
