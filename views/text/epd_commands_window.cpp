#include "views/text/epd_commands_window.h"

#include <gtkmm/scrolledwindow.h>

#include "views/text/shown_text.h"

namespace velmora {

EpdCommandsWindow::EpdCommandsWindow() {
    set_title("EPD");
    set_border_width(5);
    set_default_size(600, 200);
    m_view.set_editable(false);
    m_view.set_cursor_visible(false);
    m_view.set_wrap_mode(Gtk::WRAP_WORD_CHAR);
    m_view.set_monospace(true);
}

void EpdCommandsWindow::on_show() {
    // Scroll bars are dear, and what nobody opens must not hold up the start of the program.
    if (get_child() == nullptr) {
        auto* const scroller = Gtk::make_managed<Gtk::ScrolledWindow>();
        scroller->add(m_view);
        add(*scroller);
        scroller->show_all();
    }
    Gtk::Window::on_show();
}

void EpdCommandsWindow::set_text(std::string_view text) {
    constexpr std::size_t longest = 100'000;  // bytes; a line that long is no position's
    m_buffer->set_text(shown_text(text, longest));
}

}  // namespace velmora
