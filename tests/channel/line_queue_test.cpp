#include "channel/line_queue.h"

#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace velmora {
namespace {

using namespace std::chrono_literals;

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

/// "info" may go, "0 ..." may not, and all else is counted by its first digit.
LineQueue::Class classify(const std::string& line) {
    const auto account = static_cast<std::uint64_t>(line.front() - '0');
    return {.expendable = line.starts_with("info"), .account = line.starts_with("info") ? 0 : account};
}

TEST(LineQueue, DropsTheOldestExpendableLinesAndOnlyWhenCrowded) {
    LineQueue queue(classify);
    // Where the search for what may go had come to says nothing after a clear().
    for (std::size_t i = 0; i < LineQueue::crowded_at; ++i) queue.put("0 new");
    queue.put("info");
    queue.clear();
    queue.put("0 new");
    for (std::size_t i = 1; i < 2 * LineQueue::crowded_at; ++i) queue.put("info " + std::to_string(i));
    queue.put("0 go");
    EXPECT_EQ(queue.size(), LineQueue::crowded_at);
    EXPECT_EQ(queue.try_pop(), "0 new");
    for (std::size_t i = LineQueue::crowded_at + 2; i < 2 * LineQueue::crowded_at; ++i) {
        ASSERT_EQ(queue.try_pop(), "info " + std::to_string(i));
    }
    EXPECT_EQ(queue.try_pop(), "0 go");

    const std::string long_line = "info " + std::string(1 << 20, 'x');
    for (int i = 0; i < 100; ++i) queue.put(long_line);
    EXPECT_EQ(queue.size(), LineQueue::crowded_bytes / long_line.size());
}

TEST(LineQueue, AnAccountThatIsFullGetsNoMore) {
    LineQueue queue(classify);
    for (std::size_t i = 0; i <= LineQueue::account_limit; ++i) queue.put("1 " + std::to_string(i));
    queue.put("2 x");
    EXPECT_EQ(queue.size(), LineQueue::account_limit + 1);
    EXPECT_EQ(queue.try_pop(), "1 0");
    queue.put("1 y");
    queue.put("1 z");
    std::string last;
    while (auto line = queue.try_pop()) last = *line;
    EXPECT_EQ(last, "1 y");
}

}  // namespace
}  // namespace velmora
