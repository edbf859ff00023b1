#pragma once

#include <optional>

#include <gtkmm/window.h>

#include "game/game_tags.h"

namespace velmora {

/// The dialog "Tags": the seven of every game as fields, with a calendar for the date and a choice for the
/// result, and a list of all others. Nothing unless the person answers "OK". What the start of the game
/// depends on, "FEN" and "SetUp", isn't shown and stays.
std::optional<TagList> edit_tags(Gtk::Window& parent, const TagList& tags);

}  // namespace velmora
