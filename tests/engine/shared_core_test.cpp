#include "engine/process/shared_core.h"

#include <atomic>
#include <thread>

#include <gtest/gtest.h>

namespace velmora {
namespace {

cpu_set_t cores_of(pthread_t thread) {
    cpu_set_t cores;
    EXPECT_EQ(pthread_getaffinity_np(thread, sizeof cores, &cores), 0);
    return cores;
}

bool equal(const cpu_set_t& a, const cpu_set_t& b) { return CPU_EQUAL(&a, &b) != 0; }

TEST(SharedCore, HoldsTwoThreadsOnTheCallersCoreAndFreesThem) {
    std::atomic<bool> over = false;
    std::thread other([&over] { over.wait(false); });
    const cpu_set_t before = cores_of(pthread_self());
    {
        const SharedCore core(other.native_handle());
        const cpu_set_t shared = cores_of(pthread_self());
        EXPECT_EQ(CPU_COUNT(&shared), 1);
        EXPECT_NE(CPU_ISSET(static_cast<unsigned>(sched_getcpu()), &shared), 0);
        EXPECT_TRUE(equal(cores_of(other.native_handle()), shared));
    }
    EXPECT_TRUE(equal(cores_of(pthread_self()), before));
    EXPECT_TRUE(equal(cores_of(other.native_handle()), before));
    over = true;
    over.notify_one();
    other.join();
}

}  // namespace
}  // namespace velmora
