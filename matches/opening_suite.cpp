#include "matches/opening_suite.h"

#include <numeric>
#include <random>
#include <stdexcept>
#include <utility>

namespace velmora {

OpeningSuite::OpeningSuite(OpeningSettings settings) : m_settings(std::move(settings)) {
    if (m_settings.file.empty()) return;
    m_book.set_path(m_settings.file);
    if (m_book.count() == 0) throw std::runtime_error("no openings in " + m_settings.file);
    if (!m_settings.random) return;
    m_order.resize(static_cast<std::size_t>(m_book.count()));
    std::iota(m_order.begin(), m_order.end(), 0U);
    // By hand, since the library's shuffle is another one on every system.
    std::mt19937_64 random(m_settings.seed);
    for (std::size_t left = m_order.size(); left > 1; --left) {
        std::swap(m_order[left - 1], m_order[random() % left]);
    }
}

ChessPosition OpeningSuite::position(std::uint64_t index) {
    ChessPosition position;
    position.new_game();
    if (m_settings.file.empty()) return position;
    const std::lock_guard lock(m_mutex);
    const auto count = static_cast<std::uint64_t>(m_book.count());
    const std::uint64_t place = (index + m_settings.start - 1) % count;
    const std::uint64_t entry = m_order.empty() ? place : m_order[place];
    m_book.play_entry(position, static_cast<std::int32_t>(entry) + 1);
    while (m_settings.plies && position.moves().size() > *m_settings.plies) position.undo_move();
    return position;
}

}  // namespace velmora
