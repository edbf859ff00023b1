#include "dialogs/learn_hints_dialog.h"

#include <gtkmm/checkbutton.h>

#include "dialogs/parts/modal_dialog.h"

namespace velmora {

int ask_learn_hints(Gtk::Window& parent) {
    enum Response { cancel = 0, ok = 1 };
    ModalDialog dialog("Learn Openings Hints", parent);
    dialog.body().set_border_width(20);
    Gtk::CheckButton white("hint white moves");
    Gtk::CheckButton black("hint black moves");
    white.set_active();
    black.set_active();
    dialog.body().pack_start(white, Gtk::PACK_SHRINK);
    dialog.body().pack_start(black, Gtk::PACK_SHRINK);
    dialog.add_answer("CANCEL", cancel);
    dialog.add_answer("OK", ok);
    dialog.set_default_response(ok);
    if (dialog.run() != ok) return 0;
    return (white.get_active() ? 1 : 0) + (black.get_active() ? 2 : 0);
}

}  // namespace velmora
