#include "views/board/arrow.h"

#include <tuple>

#include <gtest/gtest.h>

namespace velmora {
namespace {

constexpr CellSize cell{70, 60};

TEST(Arrow, CentresAndAngles) {
    struct Row {
        const char* name;
        int from, to, x1, y1, x2, y2;
        double angle;
    };
    // The step from centre to centre is one pixel more than the cell.
    for (const Row& row : {
             Row{"up the board", 4, 28, 319, 30, 319, 213, 0},
             Row{"down the board", 28, 4, 319, 213, 319, 30, 3.14159265},
             Row{"to its own square", 4, 4, 319, 30, 319, 30, 3.14159265},
             Row{"to the right", 0, 7, 35, 30, 532, 30, 3.14159265 + 1.570796325},
             Row{"to the left", 7, 0, 532, 30, 35, 30, 1.570796325},
             Row{"long diagonal", 0, 63, 35, 30, 532, 457, 0.7097850 + 3.14159265 + 1.570796325},
             Row{"back along it", 63, 0, 532, 457, 35, 30, 0.7097850 + 1.570796325},
             Row{"falling diagonal", 56, 7, 35, 457, 532, 30, -0.7097850 + 3.14159265 + 1.570796325},
         }) {
        const auto arrow = make_arrow(Square(row.from), Square(row.to), ArrowColor::blue, cell);
        ASSERT_TRUE(arrow) << row.name;
        EXPECT_EQ(std::tuple(arrow->x1, arrow->y1, arrow->x2, arrow->y2),
                  std::tuple(row.x1, row.y1, row.x2, row.y2))
            << row.name;
        EXPECT_NEAR(arrow->angle, row.angle, 1e-7) << row.name;
    }
}

TEST(Arrow, HeadStandsAroundTheEndWithItsTipAhead) {
    struct Row {
        const char* name;
        int from, to;
        double tip_x, tip_y;  // from the end of the line, in radii, y downwards
    };
    for (const Row& row : {Row{"up", 4, 28, 0, -1}, Row{"down", 28, 4, 0, 1}, Row{"right", 0, 7, 1, 0},
                           Row{"left", 7, 0, -1, 0}}) {
        const auto arrow = make_arrow(Square(row.from), Square(row.to), ArrowColor::red, cell);
        const auto head = arrow_head(*arrow, cell);
        const double radius = 23;  // a third of 70, cut
        const double x = arrow->x2, y = 480 - arrow->y2;
        EXPECT_NEAR(head[0].x, x + radius * row.tip_x, 1e-4) << row.name;
        EXPECT_NEAR(head[0].y, y + radius * row.tip_y, 1e-4) << row.name;
        EXPECT_NEAR((head[0].x + head[1].x + head[2].x) / 3, x, 1e-4) << row.name;
        EXPECT_NEAR((head[0].y + head[1].y + head[2].y) / 3, y, 1e-4) << row.name;
    }
}

}  // namespace
}  // namespace velmora
