#pragma once

#include <optional>

#include <gtkmm/window.h>

#include "chess/board/game_outcome.h"

namespace velmora {

/// The dialog "Result": how a game has ended, and why in a few words, beginning with `known` where the rules
/// say so. Nothing unless the person answers "Note".
std::optional<GameOutcome> ask_result(Gtk::Window& parent, const std::optional<GameOutcome>& known);

}  // namespace velmora
