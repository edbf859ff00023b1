#include "views/board/arrow.h"

#include <cmath>
#include <tuple>

#include <gtest/gtest.h>

namespace velmora {
namespace {

constexpr CellSize cell{70, 60};

TEST(Arrow, RunsFromCentreToCentreWithItsTipAhead) {
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
        const auto head = arrow_head(*arrow, cell);
        const double radius = 23;  // a third of 70, cut
        EXPECT_NEAR(head[0].x, row.x2 - radius * std::sin(row.angle), 1e-4) << row.name;
        EXPECT_NEAR(head[0].y, 480 - row.y2 - radius * std::cos(row.angle), 1e-4) << row.name;
        EXPECT_NEAR((head[0].x + head[1].x + head[2].x) / 3, row.x2, 1e-4) << row.name;
        EXPECT_NEAR((head[0].y + head[1].y + head[2].y) / 3, 480 - row.y2, 1e-4) << row.name;
    }
}

}  // namespace
}  // namespace velmora
