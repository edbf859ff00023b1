#include "window/table/clock_history.h"

#include <utility>

namespace velmora {

ClockHistory::ClockHistory(GameSession& session, const ClockView& clocks) : m_session(session) {
    m_session.on_change([this, &clocks](Changes changes) {
        if (changes.has(Change::game)) m_readings.clear();
        if (!changes.has({Change::position, Change::clocks}) || m_session.clocks_held()) return;
        const auto node = m_session.record().current();
        const auto stood = std::exchange(m_node, node);
        const bool played = node != stood && m_session.record().tree().node(node).pid == stood;
        if (played || changes.has(Change::clocks) || !m_readings.contains(node)) {
            m_readings[node] = clocks.read_clocks();
        }
    });
}

void ClockHistory::correct(Side side, std::int32_t centiseconds) {
    const auto reading = m_readings.find(m_session.record().current());
    if (reading != m_readings.end()) reading->second[side].centiseconds = centiseconds;
}

const BySide<ClockReading>* ClockHistory::here() const {
    const auto reading = m_readings.find(m_session.record().current());
    return reading == m_readings.end() ? nullptr : &reading->second;
}

}  // namespace velmora
