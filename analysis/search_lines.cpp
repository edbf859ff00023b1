#include "analysis/search_lines.h"

#include <algorithm>
#include <utility>

namespace velmora {

void SearchLines::take(SearchInfo info) {
    const auto renew = [](auto& figure, const auto& said) {
        if (said) figure = said;
    };
    if (info.line == 1) renew(m_figures.depth, info.depth);
    renew(m_figures.selective_depth, info.selective_depth);
    renew(m_figures.nodes, info.nodes);
    renew(m_figures.nodes_per_second, info.nodes_per_second);
    renew(m_figures.time, info.time);
    renew(m_figures.hash, info.hash);
    renew(m_figures.tablebase_hits, info.tablebase_hits);
    const auto place =
        std::lower_bound(m_lines.begin(), m_lines.end(), info.line,
                         [](const SearchInfo& one, std::int32_t line) { return one.line < line; });
    const bool known = place != m_lines.end() && place->line == info.line;
    if (info.moves.empty()) {
        // Some engines tell the score apart from the moves.
        if (known) renew(place->score, info.score);
        return;
    }
    if (known) {
        if (!info.score) info.score = place->score;
        *place = std::move(info);
    } else {
        m_lines.insert(place, std::move(info));
    }
}

void SearchLines::clear() {
    m_lines.clear();
    m_figures = {};
}

std::optional<Evaluation> SearchLines::evaluation() const {
    return m_lines.empty() ? std::nullopt : m_lines.front().score;
}

}  // namespace velmora
