#include "channel/line_queue.h"

#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace velmora {
namespace {

using namespace std::chrono_literals;

TEST(LineQueue, KeepsTheOrderOfEachOfThreeWriters) {
    constexpr int lines = 5000;
    LineQueue queue;
    std::vector<std::thread> writers;
    for (int writer = 0; writer < 3; ++writer) {
        writers.emplace_back([&queue, writer] {
            for (int i = 0; i < lines; ++i) queue.put(std::to_string(writer) + " " + std::to_string(i));
        });
    }
    std::vector<int> next(3, 0);
    for (int i = 0; i < 3 * lines; ++i) {
        const auto line = queue.wait_and_pop();
        const auto writer = static_cast<std::size_t>(line.front() - '0');
        EXPECT_EQ(line, std::to_string(writer) + " " + std::to_string(next[writer]++));
    }
    for (auto& writer : writers) writer.join();
    EXPECT_TRUE(queue.empty());
}

TEST(LineQueue, QuietLinesComeWhenAnnouncedAndWithTheNextLine) {
    LineQueue queue;
    std::string read;
    std::jthread reader([&] {
        for (int i = 0; i < 3; ++i) read += queue.wait_and_pop();
    });
    queue.put_quietly("a");
    queue.announce();
    while (!queue.empty()) std::this_thread::sleep_for(1ms);
    queue.put_quietly("b");
    queue.put("c");
    reader.join();
    EXPECT_EQ(read, "abc");
}

TEST(LineQueue, DrainHoldsUpWritersUntilItsHandlerReturns) {
    LineQueue queue;
    queue.put("first");
    std::thread writer;
    std::size_t handled = 0;
    queue.drain([&](const std::string&) {
        if (handled++ == 0) {
            writer = std::thread([&queue] { queue.put("late"); });
            std::this_thread::sleep_for(20ms);  // time in which the writer would get through if it could
        }
    });
    writer.join();
    EXPECT_EQ(handled, 1U);
    EXPECT_EQ(queue.try_pop(), "late");
}

TEST(LineQueue, DropsOnlyExpendableLinesAndOnlyWhenCrowded) {
    LineQueue queue([](const std::string& line) { return line.starts_with("info"); });
    queue.put("bestmove e2e4");
    for (std::size_t i = 0; i < 2 * LineQueue::crowded_at; ++i) queue.put("info " + std::to_string(i));
    queue.put("bestmove e7e5");
    EXPECT_LE(queue.size(), LineQueue::crowded_at + 1);
    EXPECT_EQ(queue.try_pop(), "bestmove e2e4");
    std::string last;
    std::string info;
    while (auto line = queue.try_pop()) {
        info = last;
        last = *line;
    }
    EXPECT_EQ(last, "bestmove e7e5");
    EXPECT_EQ(info, "info " + std::to_string(2 * LineQueue::crowded_at - 1));
}

TEST(LineQueue, ClearKeepsWhatItIsToldToKeep) {
    LineQueue queue;
    for (const char* line : {"1 7 info depth 1", "0 quit", "0 new"}) queue.put(line);
    queue.clear([](const std::string& line) { return line == "0 quit"; });
    EXPECT_EQ(queue.try_pop(), "0 quit");
    EXPECT_TRUE(queue.empty());
}

}  // namespace
}  // namespace velmora
