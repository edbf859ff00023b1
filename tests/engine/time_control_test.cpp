#include <tuple>

#include <gtest/gtest.h>

#include "base/stopwatch.h"
#include "engine/drivers/play_state.h"
#include "engine/time/game_clock.h"
#include "engine/time/level.h"
#include "tests/support/thrown_text.h"

namespace velmora {
namespace {

std::chrono::nanoseconds fake_time{0};
std::chrono::nanoseconds fake_now() { return fake_time; }
void advance(int milliseconds) { fake_time += std::chrono::milliseconds(milliseconds); }

TEST(Level, ReadsAndWritesItsText) {
    const struct {
        const char *input, *text;
        int moves, base_ms, inc_ms;
    } rows[] = {
        {"sessions 40 0:10 0.1", "sessions 40 0:10 0.1", 40, 10000, 100},
        {"sudden_death 0 5 0", "sudden_death 0 5 0", 0, 300000, 0},
        {"sudden_death 0 5:07 2.5", "sudden_death 0 5:7 2.5", 0, 307000, 2500},
        {"  sessions\t20  1:30:20 1 rest", "sessions 20 1:30 1", 20, 90000, 1000},
        {"sessions 20 x5y30 0.29", "sessions 20 5 0.29", 20, 300000, 290},
        {"sessions many 5 1", "sessions 0 5 1", 0, 300000, 1000},
        {"sessions 1 30000 0", "sessions 1 30000 0", 1, 1800000000, 0},
        {"sessions 99999999999 99999999999:59 1e30", "sessions 2147483647 35791:23 2.14748e+06", 2147483647,
         2147483647, 2147483647},
        {"sudden_death 0 1 nan", "sudden_death 0 1 0", 0, 60000, 0},
        {"fixed_depth 12", "fixed_depth 12", 0, 1073741824, 0},
        {"fixed_movetime", "fixed_movetime 0", 0, 1073741824, 0},
    };
    for (const auto& row : rows) {
        const Level level(row.input);
        EXPECT_EQ(std::tuple(level.text(), level.moves(), level.base_ms(), level.inc_ms()),
                  std::tuple(row.text, row.moves, row.base_ms, row.inc_ms))
            << row.input;
    }
    EXPECT_EQ(Level().text(), "sessions 40 0:10 0.1");
}

TEST(Level, RefusesAnUnknownMode) {
    EXPECT_EQ(test::thrown_text([] { Level("blitz 5 0"); }), "Level::set(blitz)");
    EXPECT_EQ(test::thrown_text([] { Level(""); }), "Level::set(level_t=\?\?\?)");
}

TEST(Level, ComparesWhatMakesAClock) {
    EXPECT_EQ(Level("fixed_depth 3"), Level("fixed_nodes 7"));
    EXPECT_NE(Level("sessions 40 5 0"), Level("sudden_death 0 5 0"));
    EXPECT_NE(Level("sessions 40 5 0"), Level("sessions 40 5 0.1"));
    Level level;
    level.set_depth(9);
    EXPECT_EQ(level.text(), "fixed_depth 9");
    EXPECT_EQ(level, Level()) << "the base time stays";
}

TEST(GameClock, AddsIncrementsAndSessions) {
    GameClock clock(fake_now);
    clock.set_level(Level("sessions 2 1 1"));
    EXPECT_EQ(clock.time_left(), 60000);
    EXPECT_EQ(clock.moves_to_go(), 2);
    clock.start_clock();
    advance(4000);
    EXPECT_EQ(clock.time_left(), 56000);
    EXPECT_EQ(clock.move_time(), 4000);
    clock.move_and_stop_clock(0);
    advance(100000);
    EXPECT_EQ(clock.time_left(), 61000 - 4000);
    EXPECT_EQ(clock.moves_to_go(), 1);
    clock.start_clock();
    advance(500);
    clock.move_and_stop_clock(0);
    EXPECT_EQ(clock.move_time(), 500);
    EXPECT_EQ(clock.time_left(), 122000 - 4500);
    EXPECT_EQ(clock.moves_to_go(), 2);
    clock.restart();
    EXPECT_EQ(clock.time_left(), 60000);
    clock.set_time_left(1234);
    EXPECT_EQ(clock.time_left(), 1234);
}

TEST(GameClock, RefundsTheTimeInTransit) {
    struct Row {
        std::uint32_t stamp, present;
        int refund;
    };
    for (const Row& row : {Row{0, 900, 0}, Row{880, 900, 20}, Row{900, 900, 0}, Row{950, 900, 0}}) {
        GameClock clock(fake_now);
        clock.set_level(Level("sudden_death 0 1 0"));
        clock.move_and_stop_clock(row.stamp, row.present);
        EXPECT_EQ(clock.time_left(), 60000 + row.refund) << row.stamp;
    }
}

TEST(GameClock, LimitsWhatIsRead) {
    GameClock clock(fake_now);
    clock.set_level(Level("sessions 1 30000 0"));
    for (int i = 0; i < 3; ++i) clock.move_and_stop_clock(0);
    EXPECT_EQ(clock.time_left(), 2147483647);
}

TEST(PlayState, TakesTheHandicapOffTheClockAlone) {
    struct Row {
        const char *handicap, *level;
        int time_left, increment;
    };
    for (const Row& row :
         {Row{"50", "sudden_death 0 10 2", 300000, 1000}, Row{"12.5 %", "sessions 40 4 1", 210000, 875},
          Row{"100", "sessions 40 4 1", 240000, 1000}, Row{"half", "sessions 40 4 1", 240000, 1000},
          Row{"-5", "sessions 40 4 1", 240000, 1000}, Row{"50", "fixed_depth 8", 536870912, 0}}) {
        PlayState engine;
        engine.set_level(Level(row.level), row.handicap);
        EXPECT_EQ(engine.clock.time_left(), row.time_left) << row.handicap;
        EXPECT_EQ(engine.clock.increment(), row.increment) << row.handicap;
        EXPECT_EQ(engine.level.text(), row.level);
    }
}

}  // namespace
}  // namespace velmora
