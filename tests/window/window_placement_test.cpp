#include "window/menu/window_placement.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(WindowPlacement, CoversTheFirstWindowAsLittleAsTheScreenAllows) {
    const ScreenBox screen{0, 0, 1280, 1024};
    const struct {
        const char* name;
        ScreenBox first, second, expected;
    } rows[] = {
        {"to the right", {0, 0, 600, 700}, {0, 90, 600, 300}, {600, 90, 600, 300}},
        {"to the left", {680, 0, 600, 700}, {0, 90, 600, 300}, {80, 90, 600, 300}},
        {"no room: at the right edge", {200, 0, 600, 700}, {0, 0, 600, 300}, {680, 0, 600, 300}},
        {"no room: at the left edge", {500, 0, 600, 700}, {0, 0, 600, 300}, {0, 0, 600, 300}},
        {"above the bottom", {0, 900, 600, 700}, {0, 990, 600, 300}, {600, 724, 600, 300}},
        {"larger than the screen", {0, 0, 600, 700}, {0, 0, 2000, 2000}, {0, 0, 2000, 2000}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(place_beside(row.first, row.second, screen), row.expected) << row.name;
}

TEST(WindowPlacement, StacksOpenWindowsAsFarAsTheScreenGoes) {
    const ScreenBox screen{0, 0, 1280, 1024};
    const ScreenBox output{600, 0, 600, 330}, pgn{600, 330, 600, 430};
    EXPECT_EQ(top_below({}, 20, 430, screen, 90), 20);
    EXPECT_EQ(top_below({output}, 20, 430, screen, 90), 330);
    EXPECT_EQ(top_below({pgn, output}, 20, 264, screen, 90), 760);
    EXPECT_EQ(top_below({output, pgn}, 20, 265, screen, 90), 90);
}

}  // namespace
}  // namespace velmora
