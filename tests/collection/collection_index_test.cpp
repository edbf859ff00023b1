// The whole of it: a PGN file, its index, and what becomes of both.

#include <csignal>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include <gtest/gtest.h>

#include "tests/collection/collection_fixture.h"
#include "tests/support/thrown_text.h"

namespace velmora {
namespace {

using test::after;
using test::Collection;
using test::everything;
using test::explored;

std::string game(int number, const std::string& moves) {
    const auto text = std::to_string(number);
    return "[Event \"Event " + std::to_string(number / 100) + "\"]\n[White \"White " + text +
           "\"]\n[Black \"Black\"]\n[WhiteElo \"" + std::to_string(2000 + number % 500) + "\"]\n[Date \"" +
           std::to_string(1950 + number % 70) + ".01.01\"]\n\n" + moves + "\n\n";
}

std::string games(int first, int last) {
    static const char* const lines[] = {"1. e4 e5 2. Nf3 1-0", "1. d4 d5 2. c4 0-1",
                                        "1. e4 c5 {a comment} 1/2-1/2", "1. e4 e5 2. Qh5 Ke9 *"};
    std::string pgn;
    for (int number = first; number < last; ++number) pgn += game(number, lines[number % 4]);
    return pgn;
}

TEST(CollectionIndex, KnowsGamesAndWhatWasPlayed) {
    const Collection collection(
        "\xEF\xBB\xBF[Event \"One\"]\n[White \"A\"]\n[Black \"B\"]\n[WhiteElo \"2400\"]\n[BlackElo "
        "\"2200\"]\n"
        "[Date \"2020.05.??\"]\n[Round \"3\"]\n[Site \"S\"]\n[Result \"1-0\"]\n\n"
        "1. Nf3 Nf6 2. Ng1 Ng8 3. Nf3 Nf6 4. d4 {[%clk 1:00]} 1-0\n\n"
        "[White \"no event\"]\n\n1. d4 Nf6 2. Nf3 (2. c4) 0-1\n\n"
        "[Event \"without result\"]\n\n1. Nf3 Nf6 2. Kf2\n"
        "[Event \"set up\"]\n[FEN \"4k3/8/8/8/8/8/8/4K2R w K - 0 1\"]\n\n1. O-O -- 2. Rf2 *\n"
        "[Event \"960\"]\n[Variant \"Chess960\"]\n[FEN \"rk3r2/pppppppp/8/8/8/8/PPPPPPPP/RK3R2 w FAfa "
        "- 0 1\"]\n\n"
        "1. O-O O-O-O *\n"
        "[Event \"bad\"]\n[FEN \"nothing\"]\n\n1. e4 1/2-1/2\n");
    const auto index = collection.open();
    ASSERT_EQ(index.size(), 6U);
    const auto row = index.row(0);
    EXPECT_EQ(row.white + row.black + row.event + row.site + row.round + row.date + row.result + row.eco +
                  row.remark,
              "ABOneS32020.05.??1-0A46");
    EXPECT_EQ(row.opening, "Queen's pawn game");
    EXPECT_EQ(index.pgn(1), "[White \"no event\"]\n\n1. d4 Nf6 2. Nf3 (2. c4) 0-1");

    EXPECT_EQ(explored(index, after("")), "Nf3 2 +1 =0 -0 (2300, 2020)\nd4 1 +0 =0 -1 (0, 0)\n")
        << "a position that comes again counts once";
    EXPECT_EQ(explored(index, after("Nf3 Nf6")),
              "d4 1 +1 =0 -0 (2300, 2020)\nNg1 1 +1 =0 -0 (2300, 2020)\n"
              "end 1 +0 =0 -0 (0, 0)\n");
    EXPECT_EQ(explored(index, after("d4 Nf6 Nf3")), "end 2 +1 =0 -1 (2300, 2020)\n") << "transposed";
    EXPECT_EQ(index.games_through(after("Nf3 Nf6")), (std::vector<std::uint32_t>{0, 2}));
    EXPECT_EQ(
        index.games_through(after(""), find_legal(after(""), after("").convert_to_move("g1f3")).value()),
        (std::vector<std::uint32_t>{0, 2}));
    EXPECT_EQ(index.newest({0, 1, 2}, 2), (std::vector<std::uint32_t>{0, 2}));

    EXPECT_EQ(index.row(2).remark, "illegal or unreadable move at ply 3: Kf2");
    EXPECT_EQ(index.row(3).remark, "null move at ply 2: --");
    EXPECT_EQ(index.row(4).plies, 2U) << "castling of Chess960";
    EXPECT_EQ(index.row(4).start, GameStart::chess960);
    EXPECT_EQ(index.row(5).remark, "unreadable start position");
    EXPECT_EQ(index.remarks(), (std::array<std::uint32_t, remark_count>{3, 1, 1, 1, 0}));
}

TEST(CollectionIndex, IsTheSameWhateverTheThreads) {
    // More than one part, and games without an event tag across their borders.
    std::string pgn;
    while (pgn.size() < std::size_t{9} << 20) {
        pgn += games(0, 50) + "[White \"eventless\"]\n\n1. c4 {" + std::string(100000, '[') + "} 1-0\n\n";
    }
    const Collection collection(pgn);
    const Collection other(pgn);
    const auto one = collection.open({.jobs = 1});
    const auto many = other.open({.jobs = 5});
    ASSERT_EQ(one.size(), many.size());
    for (std::uint32_t number = 0; number < one.size(); ++number) {
        ASSERT_EQ(one.games()[number].offset, many.games()[number].offset);
        ASSERT_EQ(one.row(number).white, many.row(number).white);
    }
    EXPECT_EQ(explored(one, after("")), explored(many, after("")));
    EXPECT_EQ(pgn.substr(one.games()[50].offset).find("[White \"eventless\"]"), 0U);
}

TEST(CollectionIndex, FollowsItsFile) {
    const Collection collection(games(0, 300));
    auto index = collection.open();
    EXPECT_FALSE(index.refresh());
    const auto directory = collection.files().front().parent_path();
    std::string pgn = games(0, 300);
    for (int number = 300; number < 320; ++number) {
        collection.append(games(number, number + 1));
        pgn += games(number, number + 1);
        ASSERT_TRUE(index.refresh());
        EXPECT_EQ(collection.files().front().parent_path(), directory) << "added, not made anew";
    }
    EXPECT_LT(collection.files().size(), 9U) << "small files of positions become one";
    EXPECT_EQ(everything(index), everything(Collection(pgn).open()));

    // A changed byte, a torn game that goes on, a shorter file: all is made anew.
    pgn[pgn.find("White 7")] = 'w';
    for (const auto& text : {pgn, pgn + "[Event \"torn\"]\n\n1. e4 e5",
                             pgn + "[Event \"torn\"]\n\n1. e4 e5 2. Nf3 *", games(0, 5)}) {
        collection.scratch.write("games.pgn", text);
        ASSERT_TRUE(index.refresh());
        EXPECT_EQ(everything(index), everything(Collection(text).open()));
    }
}

TEST(CollectionIndex, MakesADamagedIndexAnew) {
    const Collection collection(games(0, 50));
    const auto expected = everything(collection.open());
    const auto count = collection.files().size();
    for (std::size_t i = 0; i < count; ++i) {
        for (const bool removed : {false, true}) {
            const auto file = collection.files()[i];
            if (removed) {
                std::filesystem::remove(file);
            } else {
                std::ofstream(file, std::ios::binary) << "something else";
            }
            EXPECT_EQ(everything(collection.open()), expected) << file;
            EXPECT_EQ(collection.files().size(), count) << "nothing is left behind";
        }
    }
}

/// Kills a process at each of its first steps of making an index.
TEST(CollectionIndex, SurvivesAKilledProcess) {
    const Collection collection(games(0, 2000));
    const auto expected = everything(Collection(games(0, 2000)).open());
    for (int steps = 1;; ++steps) {
        const pid_t child = ::fork();
        if (child == 0) {
            int left = steps;
            IndexOptions options{.jobs = 1, .on_progress = [&left](const IndexProgress&) {
                                     if (--left == 0) ::raise(SIGKILL);
                                 }};
            collection.open(options);
            ::_exit(0);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        if (!WIFSIGNALED(status)) {
            EXPECT_GT(steps, 1);
            break;
        }
    }
    EXPECT_EQ(everything(collection.open()), expected);
    EXPECT_EQ(collection.files().size(), 4U);
}

TEST(CollectionIndex, IsMadeByOneOfSeveral) {
    const Collection collection(games(0, 500));
    const auto expected = everything(Collection(games(0, 500)).open());
    std::vector<std::string> seen(4);
    {
        std::vector<std::jthread> threads;
        threads.reserve(seen.size());
        for (auto& one : seen) threads.emplace_back([&] { one = everything(collection.open()); });
    }
    for (const auto& one : seen) EXPECT_EQ(one, expected);
}

TEST(CollectionIndex, StopsWithoutATrace) {
    const Collection collection(games(0, 500));
    for (const auto phase : {IndexProgress::Phase::reading, IndexProgress::Phase::sorting}) {
        std::stop_source stop;
        const IndexOptions options{.jobs = 2,
                                   .on_progress =
                                       [&](const IndexProgress& progress) {
                                           if (progress.phase == phase) stop.request_stop();
                                       },
                                   .stop = stop.get_token()};
        EXPECT_THROW(collection.open(options), IndexStopped);
        EXPECT_TRUE(collection.files().empty());
    }
}

TEST(CollectionIndex, SaysWhatItCannotRead) {
    const ScratchDirectory scratch;
    struct Row {
        std::string path;
        std::string reason;
    };
    const Row rows[] = {
        {scratch.path("missing"), "No such file or directory"},
        {scratch.path(""), "not a regular file"},
        {scratch.write("wide.pgn", std::string_view("\xFF\xFE[\0", 4)),
         "the text is in UTF-16; save it as UTF-8 to open it"},
        {scratch.write("binary.pgn", std::string_view("[A \"\0\1\2", 7)), "not a PGN file"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(test::thrown_text<std::runtime_error>(
                      [&] { CollectionIndex::open(row.path, {}, scratch.path("cache")); }),
                  row.path + ": " + row.reason);
    }
    EXPECT_EQ(CollectionIndex::open(scratch.write("empty.pgn", ""), {}, scratch.path("cache")).size(), 0U);
    const auto blocked = scratch.write("file", "");
    EXPECT_THROW(CollectionIndex::open(scratch.path("empty.pgn"), {}, blocked + "/below"),
                 std::runtime_error);

    // Cut short while it is read, and under the hands of who has it open.
    std::string long_pgn;
    while (long_pgn.size() < std::size_t{9} << 20) long_pgn += games(0, 100);
    const Collection shrinking(long_pgn);
    IndexOptions cutting{.jobs = 1};
    cutting.on_progress = [&](const IndexProgress&) {
        std::filesystem::resize_file(shrinking.path, 5 << 20);
    };
    EXPECT_EQ(test::thrown_text<std::runtime_error>([&] { shrinking.open(cutting); }),
              shrinking.path + ": the file became shorter while it was read");
    EXPECT_TRUE(shrinking.files().empty());
    const Collection collection(games(0, 10));
    const auto index = collection.open();
    std::filesystem::resize_file(collection.path, 100);
    EXPECT_EQ(test::thrown_text<std::runtime_error>([&] { index.pgn(9); }),
              index.path() + ": the file became shorter");
}

}  // namespace
}  // namespace velmora
