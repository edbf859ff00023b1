#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace velmora {

/// How the text of a pane of engine output changes when lines are added at its end.
struct PaneChange {
    std::size_t removed = 0;  ///< characters to take off the end first
    std::string added;
};

/// Each text gets two line feeds behind it. Those two are taken away again when the next text comes, so that
/// the texts run straight on and no empty lines grow below; only a pane of at most four characters keeps
/// them. `length` is the number of characters in the pane, `texts` are valid UTF-8.
/// As a value, so that the rule can be tried without a text buffer, and so that many texts make one change.
PaneChange lengthen_pane(std::size_t length, const std::vector<std::string>& texts);

}  // namespace velmora
