#include "dialogs/modal_dialog.h"

#include <algorithm>

#include <gdkmm/monitor.h>
#include <gtkmm/label.h>

namespace velmora {

ModalDialog::ModalDialog(const Glib::ustring& title, Gtk::Window& parent) : Gtk::Dialog(title, parent, true) {
    set_position(Gtk::WIN_POS_CENTER_ON_PARENT);
    constexpr int narrowest = 280;  // pixels: room for the title above a few short words
    m_body.set_size_request(narrowest, -1);
    m_body.set_border_width(margin);
    get_content_area()->set_border_width(0);
    get_content_area()->pack_start(m_body, true, true);
    get_action_area()->set_border_width(margin);
    get_action_area()->set_spacing(row_spacing);
}

void ModalDialog::set_ordinary_size(int width, int height) {
    constexpr double ordinary_line = 19;  // pixels, of ten points at 96 dots an inch; taller fonts exist
    constexpr double most_of_screen = 0.9;
    int line_width = 0, line_height = 0;
    create_pango_layout("Xg")->get_pixel_size(line_width, line_height);
    const double factor = std::max(1.0, line_height / ordinary_line);
    Gdk::Rectangle screen(0, 0, width, height);
    if (const auto monitor = get_display()->get_primary_monitor()) monitor->get_workarea(screen);
    const auto larger = [factor](int size, int room) {
        return std::max(size, static_cast<int>(std::min(size * factor, room * most_of_screen)));
    };
    set_default_size(larger(width, screen.get_width()), larger(height, screen.get_height()));
}

void ModalDialog::add_note(const Glib::ustring& sentence) {
    constexpr int natural_width = 40;  // characters
    auto& note = *Gtk::manage(new Gtk::Label(sentence, Gtk::ALIGN_START));
    note.set_line_wrap();
    note.set_max_width_chars(natural_width);
    m_body.pack_start(note, Gtk::PACK_SHRINK);
}

Gtk::Button& ModalDialog::add_answer(const Glib::ustring& label, int response) {
    Gtk::Button& button = *add_button(label, response);
    button.set_use_underline(false);
    button.set_can_default(true);
    return button;
}

int ModalDialog::run() {
    show_all();
    return Gtk::Dialog::run();
}

}  // namespace velmora
