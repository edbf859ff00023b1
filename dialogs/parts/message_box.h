#pragma once

#include <string_view>

#include <gtkmm/window.h>

namespace velmora {

/// Shows a modal box titled "Message:" with a headline, details below it (none when empty) and "OK", and
/// waits until it is closed. The texts may hold any bytes; what is no UTF-8 is shown as "?", and what goes
/// on beyond a screenful is cut.
/// The texts come from engines and files; none of it is taken for markup.
void message_box(Gtk::Window& parent, std::string_view headline, std::string_view details);

}  // namespace velmora
