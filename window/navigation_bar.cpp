#include "window/navigation_bar.h"

#include <iostream>

#include <gdkmm/pixbuf.h>
#include <glibmm/error.h>
#include <glibmm/main.h>

#include "views/board/data_directory.h"
#include "window/session/navigation.h"

namespace velmora {

namespace {

constexpr int image_size = 24;

struct ButtonRow {
    const char* image;
    const char* text;  // where the image is missing
    const char* name;  // for the tooltip and the screen reader
    void (Navigation::*step)();
};

constexpr std::array<ButtonRow, 4> rows = {{
    {"goto_first.svg", "|<", "To the start of the game", &Navigation::to_start},
    {"go_backward.svg", "<", "One move back", &Navigation::back},
    {"go_forward.svg", ">", "One move forward", &Navigation::forward},
    {"goto_last.svg", ">|", "To the end of the game", &Navigation::to_end},
}};

}  // namespace

NavigationBar::NavigationBar() : Gtk::ButtonBox(Gtk::ORIENTATION_HORIZONTAL) {
    set_layout(Gtk::BUTTONBOX_EXPAND);
    for (auto& button : m_buttons) pack_start(button);
}

void NavigationBar::connect(Navigation& navigation) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        Gtk::Button& button = m_buttons[i];
        m_images[i].set_size_request(image_size, image_size);
        button.set_image(m_images[i]);
        button.set_always_show_image(true);
        button.set_tooltip_text(rows[i].name);
        button.get_accessible()->set_name(rows[i].name);
        button.signal_clicked().connect([&navigation, step = rows[i].step] { (navigation.*step)(); });
    }
}

/// The library that reads the images takes its time to load: the window is shown first.
void NavigationBar::on_map() {
    Gtk::ButtonBox::on_map();
    if (m_loaded) return;
    m_loaded = true;
    Glib::signal_idle().connect_once(sigc::mem_fun(*this, &NavigationBar::load_images));
}

void NavigationBar::load_images() {
    for (std::size_t i = 0; i < rows.size(); ++i) load_image(i);
}

void NavigationBar::load_image(std::size_t number) {
    const std::string path = image_path(rows[number].image);
    try {
        const int scale = get_scale_factor();
        const auto pixbuf = Gdk::Pixbuf::create_from_file(path, image_size * scale, image_size * scale, true);
        // The surface knows its scale, so that the image is sharp where a pixel of the window is several.
        m_images[number].set(Cairo::RefPtr<Cairo::Surface>(
            new Cairo::Surface(gdk_cairo_surface_create_from_pixbuf(pixbuf->gobj(), scale, nullptr), true)));
    } catch (const Glib::Error& error) {
        std::cerr << path << ": " << error.what().raw() << '\n';
        m_buttons[number].set_always_show_image(false);
        m_buttons[number].set_label(rows[number].text);
    }
}

void NavigationBar::set_possible(bool back, bool forward) {
    constexpr double faded = 0.35;
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
        const bool possible = i < 2 ? back : forward;
        m_buttons[i].set_sensitive(possible);
        // The toolkit leaves an image of our own as it is.
        m_images[i].set_opacity(possible ? 1 : faded);
    }
}

}  // namespace velmora
