#include "views/board/data_directory.h"

#include <gtest/gtest.h>

#include "tests/support/scratch_directory.h"

namespace velmora {
namespace {

TEST(DataDirectory, IsTheFirstThatHoldsTheImages) {
    const ScratchDirectory root;
    const std::vector<std::string> candidates{root.path("first/"), root.path("second/"), "/usr/games/"};
    const auto add_image = [&](std::size_t n) {
        std::filesystem::create_directories(candidates[n] + "velmora.files/svg");
        std::ofstream(candidates[n] + "velmora.files/svg/wood_l.svg") << "<svg/>";
    };
    EXPECT_EQ(data_directory(candidates), "/usr/games/") << "the last one is taken without a look";
    add_image(1);
    EXPECT_EQ(data_directory(candidates), candidates[1]);
    add_image(0);
    EXPECT_EQ(data_directory(candidates), candidates[0]);
}

}  // namespace
}  // namespace velmora
