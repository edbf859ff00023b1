#pragma once

#include <optional>

#include <gtkmm/window.h>

namespace velmora {

/// The dialog "Protocol": how to talk to a new engine, 0 autodetect (preselected), 1 uci, 2 xboard v1,
/// 3 xboard v2; nothing when the user leaves it without "OK".
std::optional<int> choose_protocol(Gtk::Window& parent);

}  // namespace velmora
