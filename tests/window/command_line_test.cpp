#include "window/command_line.h"

#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(CommandLine, SizeAndFile) {
    const auto game = (std::filesystem::temp_directory_path() / "velmora-command-line.PGN").string();
    std::ofstream(game) << "*\n";
    const std::string missing = game + ".missing.pgn";
    const struct {
        std::vector<std::string> arguments;
        bool has_size;
        int size;
        std::string file;
    } rows[] = {
        {{}, false, 560, ""},
        {{"velmora"}, false, 560, ""},
        {{"velmora", "-s"}, false, 560, ""},
        {{"velmora", "-s", "400"}, true, 400, ""},
        {{"velmora", "-size", "400"}, true, 400, ""},
        {{"velmora", "-s", "x"}, true, 0, ""},
        {{"velmora", "s", "400"}, false, 560, ""},
        {{"velmora", "-s", "400", "5"}, false, 560, ""},
        {{"velmora", game}, false, 560, game},
        {{"velmora", missing}, false, 560, ""},
        {{"velmora", "-s", "400", game}, true, 400, game},
        {{"velmora", game, "-s", "400"}, true, 400, game},
    };
    for (const auto& row : rows) {
        const CommandLine read = parse_command_line(row.arguments);
        const std::string name = testing::PrintToString(row.arguments);
        EXPECT_EQ(read.has_board_size, row.has_size) << name;
        EXPECT_EQ(read.board_size, row.size) << name;
        EXPECT_EQ(read.file, row.file) << name;
    }
    std::filesystem::remove(game);
}

}  // namespace
}  // namespace velmora
