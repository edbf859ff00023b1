#include "dialogs/parts/modal_dialog.h"

#include <algorithm>

#include <gdkmm/monitor.h>
#include <gtkmm/label.h>

namespace velmora {
namespace {

constexpr double most_of_screen = 0.9;

}  // namespace

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
    int line_width = 0, line_height = 0;
    create_pango_layout("Xg")->get_pixel_size(line_width, line_height);
    const double factor = std::max(1.0, line_height / ordinary_line);
    const Gdk::Rectangle room = room_on_screen();
    const auto larger = [factor](int size, int most) {
        return std::max(size, static_cast<int>(std::min(size * factor, static_cast<double>(most))));
    };
    set_default_size(larger(width, room.get_width()), larger(height, room.get_height()));
}

/// What a dialog may take up; nothing where the screen can't tell.
Gdk::Rectangle ModalDialog::room_on_screen() {
    Gdk::Rectangle area;
    if (const auto monitor = get_display()->get_primary_monitor()) monitor->get_workarea(area);
    area.set_width(static_cast<int>(area.get_width() * most_of_screen));
    area.set_height(static_cast<int>(area.get_height() * most_of_screen));
    return area;
}

void ModalDialog::stay_on_screen() {
    const Gdk::Rectangle room = room_on_screen();
    int default_width = 0, default_height = 0, least = 0, width = 0, height = 0;
    get_default_size(default_width, default_height);
    if (default_width > 0 || room.has_zero_area()) return;
    get_preferred_width(least, width);
    width = std::min(width, room.get_width());
    get_preferred_height_for_width(width, least, height);
    set_default_size(width, std::min(height, room.get_height()));
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
    show_all_children();
    stay_on_screen();
    show();
    return Gtk::Dialog::run();
}

}  // namespace velmora
