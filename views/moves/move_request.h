#pragma once

#include <cstdint>
#include <string>

namespace velmora {

/// What a person wants done to the moves of a game.
enum class MoveAction {
    promote,
    make_main_line,
    delete_variation,
    delete_from_here,
    set_symbol,
    edit_comment,
    undo
};

struct MoveRequest {
    MoveAction action = MoveAction::undo;
    std::int32_t node = 0;  ///< the move; 0 for undo
    std::string glyph;      ///< of set_symbol: "$1", empty for none
};

}  // namespace velmora
