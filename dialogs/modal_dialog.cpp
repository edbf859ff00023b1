#include "dialogs/modal_dialog.h"

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
