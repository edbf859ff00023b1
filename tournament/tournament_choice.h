#pragma once

#include <string>

namespace velmora {

/// What a person wants done with one of the tournaments on disk.
///
/// Apart from the dialog that asks, so that who acts on it needs no toolkit.
struct TournamentChoice {
    enum class Action { none, remove, cancel, load };
    Action action = Action::none;
    std::string name;  ///< for `remove` and `load`
};

}  // namespace velmora
