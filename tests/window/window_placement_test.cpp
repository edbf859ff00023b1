#include "window/menu/window_placement.h"

#include <vector>

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(WindowPlacement, TakesFreeSpaceAndElseCoversLittle) {
    const ScreenBox screen{0, 0, 1280, 1024};
    const ScreenBox main{0, 0, 600, 700};
    const struct {
        const char* name;
        ScreenBox main;
        std::vector<ScreenBox> others;
        ScreenBox wanted, expected;
    } rows[] = {
        {"to the right", main, {}, {0, 0, 600, 300}, {600, 0, 600, 300}},
        {"to the left", {680, 20, 600, 700}, {}, {0, 0, 600, 300}, {80, 20, 600, 300}},
        {"below another", main, {{600, 0, 600, 300}}, {0, 0, 600, 300}, {600, 300, 600, 300}},
        {"between two",
         main,
         {{600, 0, 600, 300}, {600, 700, 600, 300}},
         {0, 0, 600, 400},
         {600, 300, 600, 400}},
        {"on the other side",
         {600, 0, 400, 700},
         {{1000, 0, 280, 900}},
         {0, 0, 280, 300},
         {320, 0, 280, 300}},
        {"below the main one", main, {{600, 0, 680, 1024}}, {0, 0, 600, 300}, {0, 700, 600, 300}},
        {"no room: over the other, not over the board",
         main,
         {{600, 0, 680, 1024}},
         {0, 0, 600, 400},
         {600, 30, 600, 400}},
        {"no room at all: at the edge", {300, 0, 700, 1024}, {}, {0, 0, 500, 300}, {0, 0, 500, 300}},
        {"larger than the screen", main, {}, {0, 0, 2000, 2000}, {0, 0, 2000, 2000}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(free_place(row.main, row.others, row.wanted, screen), row.expected)
            << row.name << ": " << free_place(row.main, row.others, row.wanted, screen).x << " "
            << free_place(row.main, row.others, row.wanted, screen).y;
    }
}

}  // namespace
}  // namespace velmora
