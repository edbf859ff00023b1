#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "engine/store/engine_variables.h"

namespace velmora {

/// Asks programs whether they are engines, one after the other on a thread of its own: engines at the same
/// time would wait for each other's tables.
class EngineSearch {
public:
    /// How long a program may take to answer.
    static constexpr std::chrono::seconds patience{5};

    EngineSearch() = default;
    /// Cancels.
    ~EngineSearch() { cancel(); }
    EngineSearch(const EngineSearch&) = delete;
    EngineSearch& operator=(const EngineSearch&) = delete;

    /// Has these asked behind those that still wait; a path that has been asked isn't asked again.
    void add(const std::vector<std::string>& paths);
    /// Ends the program that is being asked, and asks no further one.
    void cancel();

    /// How far it has come.
    struct Progress {
        std::vector<EngineVariables> engines;  ///< in the order in which they were found
        std::vector<std::string> others;       ///< programs that gave no answer
        std::string asked;                     ///< the program that is being asked, empty when all have been
        std::size_t done = 0;
        std::size_t total = 0;
    };
    Progress progress() const;

private:
    void ask_all(const std::stop_token& leaving);

    mutable std::mutex m_mutex;  // guards all but the thread
    std::deque<std::string> m_waiting;
    std::vector<std::string> m_known;  // waiting and asked
    Progress m_progress;
    bool m_runs = false;
    std::jthread m_thread;
};

}  // namespace velmora
