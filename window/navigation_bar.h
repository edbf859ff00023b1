#pragma once

#include <array>

#include <gtkmm/button.h>
#include <gtkmm/buttonbox.h>
#include <gtkmm/image.h>

namespace velmora {

class Navigation;

/// The four buttons under the board that step through the game.
///
/// Images are loaded when the bar comes onto the screen, not ahead of it.
class NavigationBar : public Gtk::ButtonBox {
public:
    NavigationBar();

    void connect(Navigation& navigation);

    /// Greys the buttons that lead nowhere, images included.
    void set_possible(bool back, bool forward);

protected:
    void on_map() override;

private:
    void load_images();
    /// A missing image leaves the button with a text.
    void load_image(std::size_t number);

    std::array<Gtk::Button, 4> m_buttons;
    std::array<Gtk::Image, 4> m_images;
    bool m_loaded = false;
};

}  // namespace velmora
