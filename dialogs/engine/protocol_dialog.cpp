#include "dialogs/engine/protocol_dialog.h"

#include <array>
#include <deque>

#include <gtkmm/radiobutton.h>

#include "dialogs/parts/modal_dialog.h"

namespace velmora {

std::optional<Protocol> choose_protocol(Gtk::Window& parent) {
    // In the order of the protocols' numbers.
    constexpr std::array labels{"autodetect", "uci", "xboard v1", "xboard v2"};

    ModalDialog dialog("Protocol", parent);
    dialog.body().set_spacing(ModalDialog::row_spacing);
    Gtk::RadioButton::Group group;
    std::deque<Gtk::RadioButton> buttons;
    for (const char* label : labels) {
        dialog.body().pack_start(buttons.emplace_back(group, label), Gtk::PACK_SHRINK);
    }
    dialog.add_answer("OK", Gtk::RESPONSE_OK);
    dialog.set_default_response(Gtk::RESPONSE_OK);
    if (dialog.run() != Gtk::RESPONSE_OK) return std::nullopt;
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        if (buttons[i].get_active()) return static_cast<Protocol>(i);
    }
    return std::nullopt;
}

}  // namespace velmora
