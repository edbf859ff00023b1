#include "engine/stopped_searches.h"

namespace velmora {

void StoppedSearches::add(std::uint32_t game) { m_entries.push_back({m_now(), game}); }

std::optional<std::uint32_t> StoppedSearches::pay() {
    while (!m_entries.empty()) {
        const Entry entry = m_entries.front();
        m_entries.pop_front();
        if (m_now() - entry.stopped_at <= lapse_after) return entry.game;
    }
    return std::nullopt;
}

}  // namespace velmora
