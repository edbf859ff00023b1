#pragma once

#include <optional>

#include <gtkmm/window.h>

#include "engine/time/level.h"

namespace velmora {

/// The dialog "Time control", beginning with `level`; nothing unless the user answers "OK".
std::optional<Level> ask_time_control(Gtk::Window& parent, const Level& level);

}  // namespace velmora
