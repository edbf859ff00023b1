#include "views/board/board_marks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "views/board/render_pacer.h"

namespace velmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(BoardMarks, TurnWithTheBoard) {
    BoardMarks marks;
    marks.last_move = {12, 28};
    marks.selected = 6;
    marks.targets = {21, 23};
    marks.captures = {63};
    marks.checked_king = 60;
    const BoardMarks shown = turned(marks);
    EXPECT_EQ(shown.last_move, std::pair(51, 35));
    EXPECT_EQ(shown.selected, 57);
    EXPECT_THAT(shown.targets, ElementsAre(42, 40));
    EXPECT_THAT(shown.captures, ElementsAre(0));
    EXPECT_EQ(shown.checked_king, 3);
    EXPECT_EQ(turned(shown), marks);
}

TEST(BoardMarks, OnlyChangesAreDrawn) {
    BoardMarks before;
    before.last_move = {12, 28};
    before.targets = {40, 41};
    BoardMarks after;
    after.last_move = {28, 12};
    after.targets = {41};
    after.captures = {3, 99, -1};
    EXPECT_THAT(changed_squares(before, after), ElementsAre(3, 40));
    EXPECT_THAT(changed_squares(after, after), IsEmpty());
    EXPECT_THAT(changed_squares({}, before), ElementsAre(12, 28, 40, 41));
}

TEST(RenderPacer, RendersSingleChangesAtOnceAndSeriesAtTheirEnd) {
    using std::chrono::milliseconds;
    RenderPacer pacer;
    const RenderPacer::Time start(std::chrono::hours(1));
    const auto due = [&](int milliseconds_after, int width) {
        return pacer.is_due({width, width}, start + milliseconds(milliseconds_after));
    };
    EXPECT_TRUE(due(0, 70)) << "the first";
    EXPECT_FALSE(due(10, 70)) << "nothing has changed";
    EXPECT_FALSE(due(20, 71)) << "close behind the first";
    EXPECT_FALSE(due(100, 72));
    EXPECT_FALSE(due(200, 72)) << "has not stood long enough";
    EXPECT_TRUE(due(260, 72)) << "has settled";
    EXPECT_TRUE(due(1000, 80)) << "a change by itself";
    EXPECT_FALSE(due(1010, 81));
    EXPECT_FALSE(due(1020, 80)) << "back to what is rendered";
    EXPECT_FALSE(due(2000, 80));
    EXPECT_TRUE(due(3000, 81));
}

}  // namespace
}  // namespace velmora
