#include "window/command_line.h"

#include <filesystem>
#include <fstream>
#include <tuple>

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
        EXPECT_EQ(std::tuple(read.has_board_size, read.board_size, read.file),
                  std::tuple(row.has_size, row.size, row.file))
            << testing::PrintToString(row.arguments);
    }
    std::filesystem::remove(game);
}

}  // namespace
}  // namespace velmora
