#include "window/command_line.h"

#include <filesystem>
#include <fstream>
#include <tuple>

#include <gtest/gtest.h>

#include "base/program.h"

namespace velmora {
namespace {

TEST(CommandLine, SizeFilesAndQuestions) {
    const auto game = (std::filesystem::temp_directory_path() / "velmora-command-line.PGN").string();
    std::ofstream(game) << "*\n";
    const std::string missing = game + ".missing.pgn";
    const std::string version = std::string("Velmora GUI ") + program_version + "\n";
    using Files = std::vector<std::string>;
    const struct {
        std::vector<std::string> arguments;
        bool has_size;
        int size;
        Files files;
        std::string answer;
    } rows[] = {
        {{"velmora"}, false, 560, {}, ""},
        {{"velmora", "-s"}, false, 560, {}, ""},
        {{"velmora", "-s", "400"}, true, 400, {}, ""},
        {{"velmora", "-s", "x"}, true, 0, {}, ""},
        {{"velmora", "-s", "--help"}, true, 0, {}, ""},
        {{"velmora", "--sync", "-s", "400"}, false, 560, {}, ""},
        {{"velmora", "s", "400"}, false, 560, {"s", "400"}, ""},
        {{"velmora", "-s", "400", "5"}, false, 560, {"5"}, ""},
        {{"velmora", missing, game}, false, 560, {missing, game}, ""},
        {{"velmora", "-s", "400", game}, true, 400, {game}, ""},
        {{"velmora", "-s", "400", missing}, true, 400, {missing}, ""},
        {{"velmora", game, "-s", "400"}, true, 400, {game}, ""},
        {{"velmora", game, "--version"}, false, 560, {game}, version},
    };
    for (const auto& row : rows) {
        const CommandLine read = parse_command_line(row.arguments);
        EXPECT_EQ(std::tuple(read.has_board_size, read.board_size, read.files, read.answer),
                  std::tuple(row.has_size, row.size, row.files, row.answer))
            << testing::PrintToString(row.arguments);
    }
    EXPECT_TRUE(parse_command_line({"velmora", "--help"}).answer.starts_with("Usage: velmora "));
    std::filesystem::remove(game);
}

}  // namespace
}  // namespace velmora
