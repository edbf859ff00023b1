#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>

namespace velmora {

/// What an engine did, as a game acts on it.
struct EngineEvent {
    enum class Kind { move, resign, ready, ended };
    Kind kind = Kind::ended;
    std::string text;  ///< of a move: the engine's word
    bool stopped = false;
    std::chrono::steady_clock::time_point arrival{};  ///< when its line was read
};

/// The events of one engine, from its reader thread to the thread of its game.
///
/// Of search output the last line that has a score is kept, and nobody is woken for it: a game looks at it
/// when the move has come.
class EngineQueue {
public:
    using Clock = std::chrono::steady_clock;

    void put(EngineEvent event);
    void put_info(std::string text);

    /// The oldest event; nothing at the deadline or once `leaving` is stopped.
    std::optional<EngineEvent> wait(Clock::time_point deadline, const std::stop_token& leaving);

    /// The last search line since the last clear().
    std::string last_info();
    /// When the engine last said anything.
    Clock::time_point last_sign();
    /// Forgets the search lines alone.
    void forget_info();
    void clear();

private:
    std::mutex m_mutex;
    std::condition_variable_any m_changed;
    std::deque<EngineEvent> m_events;  // this and what follows: guarded by m_mutex
    std::string m_info;
    Clock::time_point m_last_sign{};
};

}  // namespace velmora
