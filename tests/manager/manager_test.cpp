#include "manager/manager.h"

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "referee.h"

namespace velmora {
namespace {

using test::Lines;

/// A referee whose first engine is loaded, so that "info" lines put on its queue come out again, and that is
/// held up until a test lets it go.
struct HeldReferee {
    HeldReferee() {
        referee.load("alpha", "play\n");
        referee.window().hold_at("white_info stop here");
        put("info stop here");
        referee.take_until("white_info stop here");
    }

    /// Puts a line of the engine on the queue.
    void put(const std::string& line) { referee.manager().put_command("1 " + id + " " + line); }

    test::Referee referee;
    const std::string id = std::to_string(std::mt19937_64(12345)());
};

TEST(ManagerLoop, AnswersQuitAndLeaves) {
    test::Referee referee;
    EXPECT_EQ(referee.quit(), Lines({"quit"}));
}

TEST(ManagerLoop, WhatItCannotReadIsDroppedSilently) {
    test::Referee referee;
    for (const auto* line :
         {"", " ", "3 move", "-1 quit", "noise", "0", "0 unknown", "0 Quit", "99999999999 quit"}) {
        referee.manager().put_command(line);
    }
    EXPECT_EQ(referee.quit(), Lines({"quit"}));
}

TEST(ManagerLoop, TheWordQuitElsewhereInALineEndsNothing) {
    test::Referee referee;
    referee.manager().put_command("1 7 info string quit");
    referee.say("mosquito quit");
    EXPECT_EQ(referee.quit(), Lines({"quit"}));
}

TEST(ManagerLoop, ManyWritersLoseNothingAndKeepTheirOrder) {
    constexpr int writers = 3;
    constexpr int lines_each = 3000;
    test::Referee referee;
    referee.load("alpha", "play\n");
    const std::string id = std::to_string(std::mt19937_64(12345)());
    {
        std::vector<std::jthread> threads;
        for (int writer = 0; writer < writers; ++writer) {
            threads.emplace_back([&referee, &id, writer] {
                const std::string head = "1 " + id + " info " + std::to_string(writer) + ' ';
                for (int i = 0; i < lines_each; ++i) referee.manager().put_command(head + std::to_string(i));
            });
        }
    }
    std::array<int, writers> next{};
    const Lines lines = referee.quit();
    ASSERT_EQ(lines.size(), writers * lines_each + 1U);
    for (const auto& line : lines) {
        if (line == "quit") break;
        text::WordReader reader(line);
        EXPECT_EQ(reader.word(), "white_info");
        const auto writer = reader.integer<std::size_t>().value();
        EXPECT_EQ(reader.integer<int>(), next.at(writer)++) << line;
    }
}

TEST(ManagerLoop, ACrowdedQueueDropsTheOldestSearchLinesOnly) {
    HeldReferee held;
    held.referee.say("level none");
    for (std::size_t i = 1; i <= 2 * LineQueue::crowded_at; ++i) held.put("info " + std::to_string(i));
    held.referee.say("level nothing");
    ::testing::internal::CaptureStderr();
    held.referee.window().release();
    const Lines lines = held.referee.quit();
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Level::set(none)\nLevel::set(nothing)\n");
    EXPECT_EQ(lines.front(), "telluser Error: Level::set(none)");
    // Ten thousand lines wait at most, the two that may not go among them.
    EXPECT_EQ(lines[1], "white_info 10003");
    EXPECT_EQ(lines[lines.size() - 3], "white_info 20000");
    EXPECT_EQ(lines[lines.size() - 2], "telluser Error: Level::set(nothing)");
    EXPECT_EQ(lines.size(), LineQueue::crowded_at + 1);  // and the answer to "quit"
}

TEST(ManagerLoop, TheEndOfAGameLosesAllWaitingLinesButQuit) {
    HeldReferee held;
    held.put("resign");
    held.put("info lost");
    held.referee.say("level none");
    held.referee.say("quit");
    held.referee.window().release();
    EXPECT_EQ(held.referee.take_until("quit"), Lines({"0-1 {white resigns}", "quit"}));
}

TEST(ManagerLoop, TheGameTakesAStepAfterAnEmptyLine) {
    // A crash is seen by the step alone.
    test::Referee referee;
    referee.load("alpha", "until uci\nanswer uciok\nuntil position\ndie\n");
    referee.say("playother");
    referee.say("usermove e2e4");
    Lines lines;
    referee.workplace.wait_for([&] {
        referee.manager().put_command("");
        lines = referee.take_answers();
        return std::find(lines.begin(), lines.end(), "telluser engine1 crashed") != lines.end();
    });
}

TEST(ManagerLoop, EnginesAreQuitByTheDestructor) {
    test::Workplace workplace;
    test::RecordingWindow window;
    const auto program = workplace.add_engine("alpha", "play\n");
    {
        Manager manager(window, "velmora");
        manager.process_command_from_interface("0 load 1 filename " + program);
        EXPECT_TRUE(manager.has_engine());
    }
    workplace.wait_for([&] { return workplace.sent_to("alpha").ends_with("quit\n"); });
}

}  // namespace
}  // namespace velmora
