#pragma once

#include <gtkmm/window.h>

#include "window/session/navigation.h"

namespace velmora {

/// Left, Right, Home and End step through the game, in each window that shows it, wherever no text is edited.
///
/// No accelerators of the menu: those come ahead of an entry, too, whose cursor the same keys move, and
/// they serve the main window alone.
class NavigationKeys : public sigc::trackable {
public:
    explicit NavigationKeys(Navigation& navigation) : m_navigation(navigation) {}

    /// Takes the four keys ahead of what has the keyboard in the window.
    void attach(Gtk::Window& window);

    /// Whether what has the keyboard in the window takes typed text.
    static bool is_typing(const Gtk::Window& window);
    /// Whether a part of a text that is only read is selected where the keyboard is.
    static bool has_selected_text(const Gtk::Window& window);

private:
    bool on_key(GdkEventKey* event, const Gtk::Window* window);
    bool press(unsigned key);

    Navigation& m_navigation;
};

}  // namespace velmora
