#include "views/board/render_pacer.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

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
