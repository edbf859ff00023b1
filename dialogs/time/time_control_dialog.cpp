#include "dialogs/time/time_control_dialog.h"

#include "dialogs/parts/modal_dialog.h"
#include "dialogs/time/time_control_panel.h"

namespace velmora {

std::optional<Level> ask_time_control(Gtk::Window& parent, const Level& level) {
    ModalDialog dialog("Time control", parent);
    TimeControlPanel panel(level);
    dialog.body().pack_start(panel, true, true);
    dialog.add_answer("CANCEL", Gtk::RESPONSE_CANCEL);
    dialog.add_answer("OK", Gtk::RESPONSE_OK);
    dialog.set_default_response(Gtk::RESPONSE_OK);
    if (dialog.run() != Gtk::RESPONSE_OK) return std::nullopt;
    return panel.level();
}

}  // namespace velmora
