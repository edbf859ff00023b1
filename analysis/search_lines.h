#pragma once

#include <optional>
#include <vector>

#include "analysis/search_info.h"

namespace velmora {

/// The present lines of one search: of each line the newest, in the order of their numbers.
///
/// A search is told in hundreds of lines a second, each a correction of an earlier one. What has a number of
/// its own stays, so that what is shown changes in place; its size depends on the number of lines asked for
/// and not on the length of the search.
class SearchLines {
public:
    /// Takes what an engine says. Without moves, it only brings the figures of the search up to date.
    void take(SearchInfo info);

    void clear();

    /// Sorted by their number, all with moves.
    const std::vector<SearchInfo>& lines() const { return m_lines; }

    /// The newest figures of the search as a whole: depth, nodes, speed, time, hash, tablebase hits; neither
    /// score nor moves.
    const SearchInfo& figures() const { return m_figures; }

    /// That of the best line.
    std::optional<Evaluation> evaluation() const;

private:
    std::vector<SearchInfo> m_lines;
    SearchInfo m_figures;
};

}  // namespace velmora
