#include "tools/match/live_view.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ostream>

namespace velmora {

namespace {

template <class... Values>
std::string formatted(const char* form, Values... values) {
    char text[200];
    std::snprintf(text, sizeof text, form, values...);
    return text;
}

}  // namespace

void LiveView::started(const ScheduledGame& game, const BySide<std::string>& names) {
    m_running[game.number] = names.white + " - " + names.black;
}

void LiveView::finished(const ScheduledGame& game, const std::string& last) {
    m_running.erase(game.number);
    m_last = last;
}

std::string LiveView::pace(std::size_t played) const {
    const std::chrono::duration<double, std::ratio<3600>> hours = std::chrono::steady_clock::now() - m_start;
    std::string text = "Games " + std::to_string(played) + " of " + std::to_string(m_total);
    if (played <= m_played_before) return text + '\n';
    const double speed = static_cast<double>(played - m_played_before) / hours.count();
    const auto left =
        std::lround(static_cast<double>(m_total - std::min<std::uint64_t>(m_total, played)) / speed * 3600);
    return text + formatted("   %.0f games/h   at most %ld:%02ld:%02ld left\n", speed, left / 3600,
                            left / 60 % 60, left % 60);
}

std::string LiveView::table(const Standings& games, const std::vector<std::string>& names) const {
    std::string text;
    for (const auto& row : games.table()) {
        const auto rating = names.size() == 2
                                ? rating_of(games.against(row.player, 1 - row.player), m_options.unit())
                                : row.rating;
        text += formatted("%-25.25s %6llu games  %5.1f %%  +%llu =%llu -%llu", names[row.player].c_str(),
                          static_cast<unsigned long long>(row.counts.total()), rating.score * 100,
                          static_cast<unsigned long long>(row.counts.wins()),
                          static_cast<unsigned long long>(row.counts.draws()),
                          static_cast<unsigned long long>(row.counts.losses()));
        if (rating.elo) text += formatted("  Elo %+.1f", *rating.elo);
        if (rating.error) text += formatted(" +/- %.1f", *rating.error);
        text += '\n';
    }
    return text;
}

std::string LiveView::test_bar(const Standings& games) const {
    if (!m_options.sprt) return {};
    const auto& sprt = *m_options.sprt;
    const double llr = sprt.ratio(games.against(0, 1), m_options.unit());
    constexpr int width = 40;
    const double part = (llr - sprt.lower()) / (sprt.upper() - sprt.lower());
    const int filled = static_cast<int>(std::lround(std::clamp(part, 0.0, 1.0) * width));
    return formatted("SPRT %.2f [", sprt.lower()) + std::string(static_cast<std::size_t>(filled), '#') +
           std::string(static_cast<std::size_t>(width - filled), '.') +
           formatted("] %.2f   LLR %.2f\n", sprt.upper(), llr);
}

void LiveView::draw(const Standings& games, const std::vector<std::string>& names) {
    std::string text = pace(games.games()) + table(games, names) + test_bar(games);
    for (const auto& [number, players] : m_running) {
        text += "  " + std::to_string(number) + ": " + players + '\n';
    }
    if (!m_last.empty()) text += m_last + '\n';
    clear();
    m_lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    // Lines that would wrap spoil the count, so the terminal is told not to wrap meanwhile.
    m_out << "\033[?7l" << text << "\033[?7h" << std::flush;
}

void LiveView::clear() {
    if (m_lines > 0) m_out << "\033[" << m_lines << "F\033[J" << std::flush;
    m_lines = 0;
}

}  // namespace velmora
