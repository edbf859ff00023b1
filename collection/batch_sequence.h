#pragma once

#include <condition_variable>
#include <cstddef>
#include <functional>
#include <map>
#include <mutex>

#include "collection/game_digester.h"

namespace velmora {

/// Puts what several threads have read back into the order of the file: each thread hands over the batches of
/// the part that it has, and they are taken part by part, by one thread at a time.
///
/// Who has finished a part whose turn hasn't come leaves it and goes on; only when too many lie there does he
/// wait. The thread of the part whose turn it is never waits, so the others don't wait for ever.
class BatchSequence {
public:
    /// `take` gets the batches in order; what it throws comes out of hand_over().
    BatchSequence(std::size_t most_waiting, std::function<void(const GameBatch&)> take)
        : m_most_waiting(most_waiting), m_take(std::move(take)) {}

    enum class Part { goes_on, is_done };

    /// For any thread: the next batch of part `number`, from 0. False when all have been told to stop.
    bool hand_over(std::size_t number, GameBatch batch, Part part);

    /// Lets go of all threads that wait; nothing is taken any more.
    void stop();

private:
    void take_waiting(std::unique_lock<std::mutex>& lock);

    const std::size_t m_most_waiting;
    const std::function<void(const GameBatch&)> m_take;  // called by the thread whose turn it is
    std::mutex m_mutex;
    std::condition_variable m_turn;
    std::size_t m_next = 0;                      // guarded by m_mutex; the part whose turn it is
    std::map<std::size_t, GameBatch> m_waiting;  // guarded by m_mutex; finished parts
    bool m_stopped = false;                      // guarded by m_mutex
};

}  // namespace velmora
