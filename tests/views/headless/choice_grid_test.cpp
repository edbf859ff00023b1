#include "views/choice/choice_grid.h"

#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "views/board/data_directory.h"

namespace velmora {
namespace {

TEST(ChoiceGrid, NothingLiesBesideTheGrid) {
    const CellSize cell = promo_choice_grid.cell(141, 140);
    for (const auto& [x, y] :
         {std::pair(141.0, 140.0), {140.0, 10.0}, {10.0, 140.0}, {-0.1, 10.0}, {10.0, -3.0}}) {
        EXPECT_EQ(promo_choice_grid.index_at(x, y, cell), std::nullopt) << x << " " << y;
    }
    EXPECT_EQ(promo_choice_grid.index_at(1, 1, {0, 0}), std::nullopt);
}

TEST(ChoiceGrid, ArrowKeysStayInTheGrid) {
    EXPECT_EQ(piece_choice_grid.moved(0, -1, -1), 0);
    EXPECT_EQ(piece_choice_grid.moved(0, 1, 1), 4);
    EXPECT_EQ(piece_choice_grid.moved(11, 1, 1), 11);
}

TEST(DataDirectory, IsTheFirstThatHoldsTheImages) {
    const auto root = std::filesystem::path(testing::TempDir()) / "velmora_data_directory";
    std::filesystem::remove_all(root);
    const std::string first = (root / "first/").string(), second = (root / "second/").string();
    const std::vector<std::string> candidates{first, second, "/usr/games/"};
    std::filesystem::create_directories(first + "velmora.files/svg");
    EXPECT_EQ(data_directory(candidates), "/usr/games/") << "the last one is taken without a look";
    std::filesystem::create_directories(second + "velmora.files/svg");
    std::ofstream(second + "velmora.files/svg/wood_l.svg") << "<svg/>";
    EXPECT_EQ(data_directory(candidates), second);
    std::ofstream(first + "velmora.files/svg/wood_l.svg") << "<svg/>";
    EXPECT_EQ(data_directory(candidates), first);
    std::filesystem::remove_all(root);
}

}  // namespace
}  // namespace velmora
