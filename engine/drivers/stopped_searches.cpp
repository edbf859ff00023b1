#include "engine/drivers/stopped_searches.h"

namespace velmora {

void StoppedSearches::add(std::uint32_t game) { m_entries.push_back({m_now(), game}); }

std::optional<std::uint32_t> StoppedSearches::pay() {
    if (!owed()) return std::nullopt;
    const auto game = m_entries.front().game;
    m_entries.pop_front();
    return game;
}

bool StoppedSearches::owed() {
    while (!m_entries.empty() && m_now() - m_entries.front().stopped_at > lapse_after) m_entries.pop_front();
    return !m_entries.empty();
}

}  // namespace velmora
