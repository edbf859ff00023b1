#pragma once

#include <string>

#include <gtkmm/window.h>

namespace velmora {

/// Shows the about dialog until it is closed. `image` is the path of the program's image; one that can't be
/// read is reported on standard error and left out.
/// The path comes in because what is below the data directory is the views' affair.
void show_about(Gtk::Window& parent, const std::string& image);

}  // namespace velmora
