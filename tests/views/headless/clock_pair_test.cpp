#include "views/clocks/clock_pair.h"

#include <chrono>

#include <gtest/gtest.h>

namespace velmora {
namespace {

using std::chrono::milliseconds;

/// The time that the clocks measure by; a test moves it.
std::chrono::nanoseconds present{0};

class ClockPairTest : public testing::Test {
protected:
    ClockPairTest() { present = std::chrono::hours(1); }
    void pass(int ms) { present += milliseconds(ms); }
    /// The text that a side's label shows after a refresh.
    std::string shown(Side side) {
        if (const auto text = clocks.refresh(side)) m_texts[side] = *text;
        return m_texts[side];
    }

    ClockPair clocks{[] { return present; }};

private:
    BySide<std::string> m_texts;
};

TEST(ClockText, IsNotPadded) {
    struct Row {
        std::int64_t centiseconds;
        const char* text;
    };
    for (const Row& row : {Row{30300, "5:3"}, Row{360000, "60:0"}, Row{0, "0:0"}, Row{33335500, "5555:55"},
                           Row{-150, "0:-1"}, Row{-6100, "-1:-1"}}) {
        EXPECT_EQ(clock_text(row.centiseconds), row.text);
    }
}

TEST_F(ClockPairTest, LevelGivesTheBaseTimeAndEachMoveWholeSecondsOfIncrement) {
    struct Row {
        const char* level;
        std::int32_t time, after_a_move;
    };
    for (const Row& row :
         {Row{"sessions 40 5 0", 30000, 30000}, Row{"sudden_death 0 1:30 2.9", 9000, 9200},
          Row{"sudden_death 0 5 0.9", 30000, 30000}, Row{"fixed_depth 12", 33335500, 33335500},
          Row{"sudden_death 0 5556 0", 33335500, 33335500},
          // Beyond 24 bits single precision counts in steps of two.
          Row{"sudden_death 0 5555:55 0", 33335500, 33335500}}) {
        for (const Side side : {Side::white, Side::black}) {
            clocks.set_level(Level(row.level));
            clocks.start(side);
            EXPECT_EQ(clocks.time(side), row.time) << row.level;
            EXPECT_EQ(clocks.time(opposite(side)), row.after_a_move) << row.level;
        }
    }
}

TEST_F(ClockPairTest, SessionEndsWithItsLastMove) {
    clocks.set_level(Level("sessions 40 10 1"));
    for (int move = 1; move <= 40; ++move) {
        EXPECT_EQ(clocks.time(Side::black), 60000 + 100 * (move - 1));
        clocks.start(Side::white);
        clocks.start(Side::black);
    }
    EXPECT_EQ(clocks.time(Side::black), 60000 + 100 * 40 + 60000);
    clocks.start(Side::white);
    EXPECT_EQ(clocks.time(Side::black), 60000 + 100 * 41 + 60000) << "the count begins anew";
    clocks.reset();
    EXPECT_EQ(clocks.time(Side::black), 60000);
}

TEST_F(ClockPairTest, TimesStayWithinTheirType) {
    clocks.set_level(Level("sessions 1 5555:55 0"));
    for (int move = 0; move < 80; ++move) clocks.start(Side::white);
    EXPECT_EQ(clocks.time(Side::black), 2147483647);
    EXPECT_EQ(shown(Side::black), "5555:55");
}

TEST_F(ClockPairTest, OnlyTheRunningSideLosesTime) {
    clocks.set_level(Level("sudden_death 0 1 0"));
    EXPECT_EQ(shown(Side::white), "1:0");
    clocks.start(Side::white);
    pass(1500);
    EXPECT_EQ(shown(Side::white), "0:58");
    clocks.start(Side::black);
    pass(61000);
    EXPECT_EQ(shown(Side::white), "0:58");
    EXPECT_EQ(shown(Side::black), "0:-1");
    clocks.start(Side::white);
    clocks.start(Side::white);
    pass(500);
    clocks.start(Side::white);
    pass(600);
    EXPECT_EQ(shown(Side::white), "0:57") << "starting anew keeps what was measured";
}

TEST_F(ClockPairTest, SingleSecondUpwardsIsHidden) {
    clocks.set_level(Level("sudden_death 0 1 0"));
    clocks.set_time(Side::white, 5000);
    EXPECT_EQ(clocks.refresh(Side::white), "0:50");
    EXPECT_EQ(clocks.refresh(Side::white), std::nullopt);
    clocks.set_time(Side::white, 5199);
    EXPECT_EQ(clocks.refresh(Side::white), std::nullopt);
    clocks.set_time(Side::white, 5200);
    EXPECT_EQ(clocks.refresh(Side::white), "0:52");
    clocks.set_time(Side::white, 4900);
    EXPECT_EQ(clocks.refresh(Side::white), "0:49");
}

TEST_F(ClockPairTest, UpdatesKeepAClockRunningAndAStoppedOneStopped) {
    clocks.set_level(Level("sudden_death 0 5 0"));
    clocks.start(Side::black);
    clocks.set_time(Side::black, 1000);
    clocks.set_time(Side::white, 1000);
    pass(2000);
    EXPECT_EQ(shown(Side::black), "0:8");
    EXPECT_EQ(shown(Side::white), "0:10");
    clocks.set_level(Level("sudden_death 0 2 0"));
    pass(3000);
    EXPECT_EQ(shown(Side::black), "1:57");
    clocks.stop();
    for (const Side side : {Side::white, Side::black}) {
        clocks.set_time(side, 2000);
        pass(5000);
        EXPECT_EQ(shown(side), "0:20") << "neither starts by itself";
    }
}

}  // namespace
}  // namespace velmora
