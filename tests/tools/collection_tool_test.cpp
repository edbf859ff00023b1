// velmora-collection as a script calls it: words in, text and status out.

#include <cstdio>
#include <string>
#include <sys/wait.h>

#include <gtest/gtest.h>

#include "tests/support/scratch_directory.h"

namespace velmora {
namespace {

const std::string pgn =
    "[Event \"Open\"]\n[White \"Aalbers\"]\n[Black \"Brandt\"]\n[WhiteElo \"2500\"]\n[Date "
    "\"2020.01.01\"]\n\n"
    "1. e4 e5 2. Nf3 1-0\n\n"
    "[Event \"Open\"]\n[White \"Brandt\"]\n[Black \"Aalbers\"]\n\n1. Nf3 e5 2. e4 Nxe4 0-1\n\n"
    "[Event \"Cup\"]\n[White \"Castro\"]\n[Black \"Dietz\"]\n\n1. d4 1/2-1/2\n";

struct Said {
    std::string text;  // of standard output and standard error
    int status = 0;
};

class CollectionTool : public testing::Test {
protected:
    /// The tool's answer; "FILE" in the words is the PGN file.
    Said run(std::string words) const {
        for (auto at = words.find("FILE"); at != std::string::npos; at = words.find("FILE")) {
            words.replace(at, 4, m_file);
        }
        const auto command = "XDG_CACHE_HOME=" + m_scratch.path("cache") + " TMPDIR=" + m_scratch.path("") +
                             " 2>&1 " VELMORA_COLLECTION " " + words;
        Said said;
        std::FILE* const out = ::popen(command.c_str(), "r");
        for (int c = std::fgetc(out); c != EOF; c = std::fgetc(out)) said.text += static_cast<char>(c);
        said.status = WEXITSTATUS(::pclose(out));
        return said;
    }

    ScratchDirectory m_scratch;
    const std::string m_file = m_scratch.write("games.pgn", pgn);
};

TEST_F(CollectionTool, AnswersQuestions) {
    EXPECT_EQ(run("explore FILE").text,
              "3 games\n"
              "move          games   share   white    draw   black  rating  last\n"
              "Nf3               1   33.3%    0.0%    0.0%  100.0%       -     -\n"
              "d4                1   33.3%    0.0%  100.0%    0.0%       -     -\n"
              "e4                1   33.3%  100.0%    0.0%    0.0%    2500  2020\n");
    EXPECT_EQ(
        run("explore FILE --json --fen 'rnbqkbnr/pppp1ppp/8/4p3/4P3/5N2/PPPP1PPP/RNBQKB1R b KQkq - 1 2'")
            .text,
        "{\"fen\": \"rnbqkbnr/pppp1ppp/8/4p3/4P3/5N2/PPPP1PPP/RNBQKB1R b KQkq - 1 2\", \"games\": 2, "
        "\"moves\": "
        "[], \"ended\": 2}\n");
    const std::string head =
        "game\twhite\telo\tblack\telo\tresult\tdate\tevent\tsite\tround\teco\topening\tmoves\tremark\n";
    EXPECT_EQ(run("find FILE cup").text,
              head + "3\tCastro\t\tDietz\t\t1/2-1/2\t????.??.??\tCup\t\t\tA40\tQueen's pawn\t1\t\n");
    EXPECT_EQ(
        run("find FILE 'white:brandt' --fen 'rnbqkbnr/pppp1ppp/8/4p3/4P3/5N2/PPPP1PPP/RNBQKB1R b KQkq - 0 1'")
            .text.substr(head.size()),
        "2\tBrandt\t\tAalbers\t\t0-1\t????.??.??\tOpen\t\t\tC40\tKing's knight opening\t2\tillegal or "
        "unreadable "
        "move at ply 4: Nxe4\n");
    EXPECT_EQ(
        run("find FILE 'elo>2000' --fen 'rnbqkbnr/pppp1ppp/8/4p3/4P3/5N2/PPPP1PPP/RNBQKB1R b KQkq - 0 1'")
            .text,
        head);
    EXPECT_EQ(run("find - 'year:2020' --pgn <FILE").text, pgn.substr(0, pgn.find("\n\n[Event") + 2));
    const auto summary = run("index FILE --jobs 2");
    EXPECT_EQ(summary.status, 0);
    EXPECT_NE(summary.text.find("games                  3\n"), std::string::npos) << summary.text;
    EXPECT_EQ(run("stats FILE").text, summary.text);
    EXPECT_FALSE(std::filesystem::exists(m_scratch.path("velmora-collection"))) << "the pipe's index is gone";
}

TEST_F(CollectionTool, SaysWhatIsWrong) {
    struct Row {
        std::string words;
        std::string reason;
        int status;
    };
    const std::string more = "\nvelmora-collection --help tells more.\n";
    const Row rows[] = {
        {"", "a command is missing: index, explore, find or stats" + more, 2},
        {"list FILE", "no such command: list" + more, 2},
        {"find FILE", "find wants a file and a filter" + more, 2},
        {"stats", "stats wants one file" + more, 2},
        {"stats FILE --json", "stats has no option --json" + more, 2},
        {"index FILE --jobs", "--jobs wants a value" + more, 2},
        {"index FILE --jobs 0", "--jobs wants a number from 1 to 64" + more, 2},
        {"explore FILE --fen nothing", "--fen: no position: nothing" + more, 2},
        {"find FILE 'a elo>x'",
         "filter, \"elo>x\": elo wants a number or a range: elo>2500, elo:2400-2600" + more, 2},
        {"stats /nowhere.pgn", "/nowhere.pgn: No such file or directory\n", 1},
        {"find FILE '' >/dev/full", "standard output can't be written\n", 1},
    };
    for (const auto& row : rows) {
        const auto said = run(row.words);
        EXPECT_EQ(said.text, "velmora-collection: " + row.reason) << row.words;
        EXPECT_EQ(said.status, row.status) << row.words;
    }
    EXPECT_EQ(run("--help").status, 0);
}

}  // namespace
}  // namespace velmora
