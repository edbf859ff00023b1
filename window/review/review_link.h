#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "engine/time/level.h"
#include "window/session/manager_link.h"
#include "window/session/message_dispatcher.h"

namespace velmora {

/// Asks the referee for reviews and knows whether one is under way.
///
/// The referee does one at a time, and a new one ends the one before; each has a number, by which whoever
/// asked for it knows its answers among those that are still on their way.
class ReviewLink {
public:
    /// Listens to the referee; must outlive its last line.
    ReviewLink(ManagerLink& manager, MessageDispatcher& dispatcher);
    ReviewLink(const ReviewLink&) = delete;  // the dispatcher knows where it is
    ReviewLink& operator=(const ReviewLink&) = delete;

    /// Has positions of a line searched in this order; gives the run's number, which isn't 0.
    /// @param plies  moves ahead of each position
    /// @param line   a FEN, the word "moves", and the moves in coordinates
    std::int32_t start(const Level& level, const std::vector<std::size_t>& plies, const std::string& line);

    /// Ends a run; nothing for one that isn't under way.
    void stop(std::int32_t run);

    bool is_running() const { return m_running != 0; }

private:
    ManagerLink& m_manager;
    std::int32_t m_last = 0;
    std::int32_t m_running = 0;  // 0 for none
};

}  // namespace velmora
