#pragma once

#include <atomic>
#include <thread>

#include "matches/game_pool.h"

namespace velmora {

/// Waits for the two signals that end a match on a thread of its own, where anything may be called: the first
/// breaks the running games off, a second one ends the program at once.
///
/// REQUIRES: SIGINT, SIGTERM and SIGUSR1 are blocked in all threads.
class SignalWatch {
public:
    explicit SignalWatch(GamePool& pool) : m_thread([this, &pool] { watch(pool); }) {}
    ~SignalWatch();
    SignalWatch(const SignalWatch&) = delete;
    SignalWatch& operator=(const SignalWatch&) = delete;

    bool was_broken_off() const { return m_count > 0; }

private:
    void watch(GamePool& pool);

    std::atomic<bool> m_ending = false;
    std::atomic<int> m_count = 0;
    std::thread m_thread;
};

}  // namespace velmora
