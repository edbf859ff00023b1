#pragma once

#include <array>

#include <gtkmm/button.h>
#include <gtkmm/buttonbox.h>

namespace velmora {

class Navigation;

/// The four buttons under the board that step through the game.
class NavigationBar : public Gtk::ButtonBox {
public:
    NavigationBar();

    /// Loads the images and connects the clicks. A missing image leaves a button with a text.
    void connect(Navigation& navigation);

    /// Greys the buttons that lead nowhere, images included.
    void set_possible(bool back, bool forward);

private:
    std::array<Gtk::Button, 4> m_buttons;
};

}  // namespace velmora
