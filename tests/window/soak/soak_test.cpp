// A monkey at the real window, with the referee's thread and engine processes. VELMORA_SOAK_ACTIONS and
// VELMORA_SOAK_SEED change its length and its choices. What the toolkit, or the window about a line of the
// referee, complains of on standard error fails the test as well (CMakeLists.txt).

#include <cstdlib>
#include <filesystem>
#include <iostream>

#include <gtest/gtest.h>

#include "game/pgn_file.h"
#include "tests/window/soak/monkey.h"

namespace velmora::soak {
namespace {

int setting(const char* name, int otherwise) {
    const char* const value = std::getenv(name);
    return value ? std::atoi(value) : otherwise;
}

/// A game with variations and comments, a damaged file, positions, a book, engines good and bad, a match.
void furnish(const test::Workplace& place) {
    std::filesystem::create_directory_symlink(
        std::string(std::getenv("VELMORA_SOURCE_DIR")) + "/velmora.files", "velmora.files");
    place.write("games.pgn", R"([Event "One"]
[White "Ann"]
[Black "Bob"]
[Result "1-0"]

1. e4 e5 (1... c5 {Sicilian} 2. Nf3 (2. c3 d5)) 2. Bc4 Nc6 3. Qh5 Nf6 $2 {a blunder} (3... g6) 4. Qxf7# 1-0

[Event "Two"]
[SetUp "1"]
[FEN "4k3/P7/8/8/8/8/4P3/4K3 w - - 0 30"]
[Result "*"]

30. a8=Q+ Kd7 31. e4 *

)");
    place.write("broken.pgn", "[Event \"x\n\n1. e4 (( { e5 2. Zz9 ]]\n\n[Event \"y\"]\n\n1. e5 1-0\n[");
    place.write("positions.epd",
                "4k3/8/8/8/8/8/4P3/4K3 w - - bm e4; id \"first\";\n\n"
                "r3k2r/pppq1ppp/2n2n2/3pp3/3PP3/2N2N2/PPPQ1PPP/R3K2R w KQkq - 0 1\nnonsense\n"
                "8/8/8/8/8/8/8/8 w - - 0 1\n8/P6k/8/8/8/8/p6K/8 w - - 0 1\n");
    place.write("empty", "");
    // The start position's key with 1.e4 and 1.d4, as big-endian records of 16 bytes.
    place.write("book.bin", std::string("\x46\x3b\x96\x18\x16\x91\xfc\x9c\x03\x1c\0\x01\0\0\0\0"
                                        "\x46\x3b\x96\x18\x16\x91\xfc\x9c\x02\xdb\0\x01\0\0\0\0",
                                        32));
    place.install_engine(
        "alpha",
        "name Alpha\ninfo 3\nponder\noption name Style type combo default Calm var Calm var Wild\n"
        "option name Hash type spin default 16 min 1 max 1024\noption name Clear type button\n"
        "option name UCI_Chess960 type check default false\nplay uci");
    place.install_engine("beta", "name Beta\ninfo 2\nplay xboard\ncfg protocol xboard_v2");
    place.add_engine("gamma", "name Gamma\nthink 20\nat 9 answer bestmove a1a1\nat 15 die\nplay uci");
    place.add_engine("delta", "name Delta\nat 4 hang\nplay uci");
    place.write("tournaments/Soak.trn", R"(event Soak
site  ?
level fixed_movetime 10
type match
rounds 2
bothcolors false
randomorder true
ignoretimeloss false
participant alpha
participant beta
game       1      1    2  -  1     *
game       2      2    1  -  2     *
)");
}

TEST(Soak, AMonkeyFindsNoFault) {
    const int actions = setting("VELMORA_SOAK_ACTIONS", 200);
    const int seed = setting("VELMORA_SOAK_SEED", 1);
    test::Workplace place;
    furnish(place);
    {
        Interface window("velmora", 480);
        ASSERT_TRUE(gui::pump_until([&] {
            window.show();
            return window.get_mapped();
        }));
        window.actions().set_active("Debug", true);
        Monkey monkey(window, place, static_cast<std::uint32_t>(seed), actions);
        monkey.run();
        EXPECT_EQ(monkey.difference(), "");
        EXPECT_GE(monkey.comparisons(), actions / 200);
        std::cerr << actions << " actions, seed " << seed << ", " << monkey.comparisons()
                  << " positions compared\n";
    }
    // The running archive can be read to its end.
    if (std::filesystem::exists("Velmora battles.pgn")) {
        PgnFile archive;
        archive.open("Velmora battles.pgn");
        for (std::string game = archive.read_game(); !game.empty(); game = archive.read_game()) {
            EXPECT_NO_THROW(Game().parse_pgn(game)) << game;
        }
    }
}

}  // namespace
}  // namespace velmora::soak
