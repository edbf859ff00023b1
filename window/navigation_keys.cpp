#include "window/navigation_keys.h"

#include <gdk/gdkkeysyms.h>
#include <gtkmm/editable.h>
#include <gtkmm/textview.h>

namespace velmora {

void NavigationKeys::attach(Gtk::Window& window) {
    const auto take = sigc::bind(sigc::mem_fun(*this, &NavigationKeys::on_key), &window);
    window.signal_key_press_event().connect(take, false);
}

/// With a modifier they are somebody else's: the window manager's, or a shortcut.
bool NavigationKeys::on_key(GdkEventKey* event, const Gtk::Window* window) {
    const auto modifiers = event->state & gtk_accelerator_get_default_mod_mask();
    return modifiers == 0 && !is_typing(*window) && press(event->keyval);
}

bool NavigationKeys::is_typing(const Gtk::Window& window) {
    const Gtk::Widget* const focus = window.get_focus();
    const auto* const text = dynamic_cast<const Gtk::TextView*>(focus);
    return (text && text->get_editable()) || dynamic_cast<const Gtk::Editable*>(focus);
}

bool NavigationKeys::has_selected_text(const Gtk::Window& window) {
    const auto* const text = dynamic_cast<const Gtk::TextView*>(window.get_focus());
    return text != nullptr && text->get_buffer()->get_has_selection();
}

bool NavigationKeys::press(unsigned key) {
    switch (key) {
        case GDK_KEY_Left:
            m_navigation.back();
            return true;
        case GDK_KEY_Right:
            m_navigation.forward();
            return true;
        case GDK_KEY_Home:
            m_navigation.to_start();
            return true;
        case GDK_KEY_End:
            m_navigation.to_end();
            return true;
        default:
            return false;
    }
}

}  // namespace velmora
