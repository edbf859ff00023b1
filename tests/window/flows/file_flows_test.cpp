#include "window/flows/file_flows.h"

#include <sys/stat.h>

#include "tests/window/flows/flows_test.h"

namespace velmora {
namespace {

using Lines = std::vector<std::string>;

const std::string first_game = "[White \"Ann\"]\n\n1. e4 e5 *\n\n";
const std::string second_game =
    "[White \"Cid\"]\n[SetUp \"1\"]\n[FEN \"4k3/8/8/8/8/8/4P3/4K3 b - - 0 30\"]\n\n{Late} 30... Kd7 31. e4 "
    "*\n";
const std::string first_fen = "4k3/8/8/8/8/8/4P3/4K3 w - - 0 1";
const std::string second_fen = "4k3/4p3/8/8/8/8/8/4K3 b - - 0 1";

class FileFlowsTest : public FlowsTest {
protected:
    std::string positions() {
        return home.write("positions.epd", "4k3/8/8/8/8/8/4P3/4K3 w - - bm e4; id \"first\";\r\n\n" +
                                               second_fen + "\nnonsense\n8/8/8/8/8/8/8/8 w - - 0 1\n");
    }

    FileFlows files{session, screen, screen, dialogs, link, modes};
};

TEST_F(FileFlowsTest, TheChosenGameTakesThePlaceOfTheOneOnTheBoard) {
    dialogs.files[FileKind::load_game] = home.write("games.pgn", first_game + second_game);
    select(Mode::setup);
    files.load_game();
    EXPECT_EQ(screen.mode(), Mode::human_human);
    EXPECT_THAT(referee.take(), testing::Each(testing::Not(HasSubstr("Kd7")))) << "no game was chosen";
    dialogs.game = first_game.size();
    files.load_game();
    EXPECT_THAT(referee.take(), ElementsAre("0 setboard 4k3/8/8/8/8/8/4P3/4K3 b - - 0 30"));
    EXPECT_EQ(session.record().tag("White"), "Cid");
    EXPECT_EQ(screen.comment, "Late");
    EXPECT_THAT(screen.calls, testing::IsSupersetOf({"clear arrows", "mark clock black"}));

    dialogs.game = 0;
    for (const char* movetext : {"(1. d4) *\n", "1. e4\xE9 e5 *\n"}) {
        dialogs.files[FileKind::load_game] =
            home.write("bad.pgn", std::string("[White \"Dan\"]\n\n") + movetext);
        testing::internal::CaptureStderr();
        files.load_game();
        EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::StartsWith("# invalid game: \n"))
            << movetext;
    }
    EXPECT_EQ(session.record().tag("White"), "Cid");
    EXPECT_THAT(referee.take(), IsEmpty());
}

TEST_F(FileFlowsTest, AGameThatTheStrictReaderLosesIsReadByTheSecond) {
    dialogs.files[FileKind::load_game] =
        home.write("site.pgn",
                   "[Event \"Open [Group 2] 2023\"]\n[White \"Ann\"]\n[Result \"1-0\"]\n\n"
                   "1. e4 e5 2. \u2658f3 Nc6 3. Bc4 Bc5 4. 0-0 1\u20130\n");
    dialogs.game = 0;
    files.load_game();
    EXPECT_EQ(session.record().tag("White"), "Ann");
    Game game = session.record();
    EXPECT_THAT(game.to_end(), HasSubstr("/RNBQ1RK1 b"));
}

TEST_F(FileFlowsTest, PositionsOfAFileOneAfterTheOther) {
    dialogs.files[FileKind::load_position] = positions();
    files.load_next_position();
    files.load_position();
    EXPECT_THAT(referee.take(), IsEmpty()) << "nothing has been loaded";
    dialogs.position = ChosenPosition{1, "4k3/8/8/8/8/8/4P3/4K3 w - - bm e4; id \"first\";"};
    files.load_position();
    EXPECT_THAT(referee.take(), ElementsAre("0 setboard " + first_fen));
    EXPECT_EQ(session.record().tag("Event") + "|" + session.record().tag("FEN"), "first|" + first_fen);
    EXPECT_THAT(session.epd_text(), HasSubstr("bm e4;"));
    files.load_next_position();
    EXPECT_THAT(referee.take(), ElementsAre("0 setboard " + second_fen));
    files.load_next_position();  // nonsense: nothing happens
    EXPECT_THAT(dialogs.told, IsEmpty());
    files.load_next_position();
    EXPECT_THAT(dialogs.told, ElementsAre(HasSubstr("The position can't be set up|")));
    files.load_next_position();  // there is no fifth line
    EXPECT_THAT(referee.take(), IsEmpty());
    for (int i = 0; i < 4; ++i) files.load_previous_position();
    EXPECT_THAT(referee.take(), ElementsAre("0 setboard " + second_fen, "0 setboard " + first_fen,
                                            "0 setboard " + first_fen));
    select(Mode::tournament);
    files.load_next_position();
    files.load_position();
    files.enter_fen(second_fen);
    EXPECT_THAT(referee.take(), IsEmpty()) << "a match only looks on";
}

TEST_F(FileFlowsTest, WhatIsSavedStandsInTheFile) {
    screen.comment = "typed";
    dialogs.files[FileKind::save_game] = home.path("saved.pgn");
    files.save_game();
    files.save_game();
    EXPECT_EQ(home.content("saved.pgn"), session.pgn() + session.pgn());
    EXPECT_THAT(session.pgn(), HasSubstr("{typed}"));
    dialogs.files[FileKind::save_position] = home.path("saved.fen");
    files.save_position();
    EXPECT_EQ(home.content("saved.fen"), session.position().fen() + "\n");
    for (const char* name : {"full.pgn", "full.fen"}) {
        std::filesystem::create_symlink("/dev/full", home.path(name));
    }
    dialogs.files[FileKind::save_game] = home.path("full.pgn");
    files.save_game();
    dialogs.files[FileKind::save_position] = home.path("full.fen");
    files.save_position();
    EXPECT_THAT(
        dialogs.told,
        ElementsAre(
            testing::AllOf(HasSubstr("The game was not saved|"), HasSubstr("No space left on device")),
            testing::AllOf(HasSubstr("The position was not saved|"), HasSubstr("Invalid argument"))));
}

TEST_F(FileFlowsTest, ATypedFenThatCannotBeReadIsToldAndChangesNothing) {
    const auto before = session.position().fen();
    files.enter_fen("rnbqkbnr/8/8/8/8/8/8/RNBQ1BNR w - - 0 1");
    EXPECT_EQ(session.position().fen(), before);
    EXPECT_THAT(dialogs.told, ElementsAre(testing::EndsWith("error number of kings")));
    files.enter_fen(second_fen);
    EXPECT_THAT(referee.take(), ElementsAre("0 setboard " + second_fen));
}

TEST_F(FileFlowsTest, FilesFromOutsideGoTheWayOfTheirKind) {
    const auto here = [this](const std::string& name) { return home.path(name); };
    home.write("games.PGN", first_game);
    home.write("book.bin", "");
    home.write("a_b.txt", "");
    positions();
    for (const char* name : {"pipe.pgn", "pipe.fen", "pipe.bin"}) ::mkfifo(here(name).c_str(), 0600);
    dialogs.game = 0;
    dialogs.position = ChosenPosition{2, second_fen};
    const struct {
        Lines paths, sent, told;
    } rows[] = {
        {{}, {}, {}},
        {{here("games.PGN")}, {"0 setboard rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1"}, {}},
        {{here("positions.epd")}, {"0 setboard " + second_fen}, {}},
        {{here("book.bin"), "a", "b"},
         {"0 polyglotbook " + here("book.bin")},
         {"Only one file is opened at a time, not these:|a\nb\n"}},
        {{here("none.pgn")}, {}, {"The file can't be opened|There is no file " + here("none.pgn")}},
        {{here("a_b.txt")},
         {},
         {"The file can't be opened|" + here("a_b.txt") + " is no .pgn, .fen, .epd or .bin file"}},
        {{here("pipe.pgn")}, {}, {"The file can't be read|" + here("pipe.pgn") + ": not a regular file"}},
        {{here("pipe.fen")}, {}, {"The file can't be read|" + here("pipe.fen") + ": not a regular file"}},
        {{here("pipe.bin")}, {}, {"The file can't be read|" + here("pipe.bin") + ": not a regular file"}},
    };
    for (const auto& row : rows) {
        dialogs.told.clear();
        files.open(row.paths);
        EXPECT_EQ(referee.take(), row.sent) << testing::PrintToString(row.paths);
        EXPECT_EQ(dialogs.told, row.told) << testing::PrintToString(row.paths);
    }
    dialogs.files[FileKind::polyglot_book] = here("book.bin");
    files.choose_polyglot_book();
    EXPECT_THAT(referee.take(), ElementsAre("0 polyglotbook " + here("book.bin")));
    select(Mode::tournament);
    files.open({here("positions.epd")});
    EXPECT_THAT(referee.take(), IsEmpty());
    files.open({here("games.PGN")});
    EXPECT_EQ(screen.mode(), Mode::human_human);
}

}  // namespace
}  // namespace velmora
