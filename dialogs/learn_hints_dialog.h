#pragma once

#include <gtkmm/window.h>

namespace velmora {

/// The dialog "Learn Openings Hints", which proposes both: 1 for hints of White's moves plus 2 for Black's; 0
/// also when the user leaves it without "OK".
int ask_learn_hints(Gtk::Window& parent);

}  // namespace velmora
