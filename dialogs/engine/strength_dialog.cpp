#include "dialogs/engine/strength_dialog.h"

#include <cmath>

#include <gtkmm/checkbutton.h>
#include <gtkmm/label.h>
#include <gtkmm/scale.h>

#include "base/text.h"
#include "dialogs/parts/modal_dialog.h"

namespace velmora {

std::optional<std::optional<std::int64_t>> ask_strength(Gtk::Window& parent, const std::string& engine,
                                                        const StrengthControl& control) {
    const bool is_elo = control.scale == StrengthControl::Scale::elo;
    ModalDialog dialog("Strength", parent);
    Gtk::Label name(text::displayable(engine));
    name.set_xalign(0);
    name.set_line_wrap();
    Gtk::CheckButton full("_Full strength", true);
    full.set_active(!control.limited);
    Gtk::Scale slider(Gtk::ORIENTATION_HORIZONTAL);
    slider.set_range(static_cast<double>(control.weakest), static_cast<double>(control.strongest));
    slider.set_increments(is_elo ? 10 : 1, is_elo ? 100 : 1);
    slider.set_digits(0);
    slider.set_value(static_cast<double>(control.value));
    slider.set_hexpand();
    slider.get_accessible()->set_name(is_elo ? "Elo" : "Level");
    const auto ends = [&slider](std::int64_t value, const std::string& text) {
        slider.add_mark(static_cast<double>(value), Gtk::POS_BOTTOM, text);
    };
    const std::string unit = is_elo ? " Elo" : "";
    ends(control.weakest, std::to_string(control.weakest) + unit);
    ends(control.strongest, std::to_string(control.strongest) + unit);
    const auto follow = [&] { slider.set_sensitive(!full.get_active()); };
    full.signal_toggled().connect(follow);
    follow();
    dialog.set_ordinary_size(420, 0);
    dialog.body().pack_start(name, Gtk::PACK_SHRINK);
    dialog.body().pack_start(full, Gtk::PACK_SHRINK);
    dialog.body().pack_start(slider, Gtk::PACK_SHRINK);
    dialog.add_note("Sets the engine's option" +
                    (control.limiter.empty()
                         ? " \"" + control.option + "\"."
                         : "s \"" + control.limiter + "\" and \"" + control.option + "\"."));
    dialog.add_answer("Cancel", Gtk::RESPONSE_CANCEL);
    dialog.add_answer("OK", Gtk::RESPONSE_OK);
    dialog.set_default_response(Gtk::RESPONSE_OK);
    if (dialog.run() != Gtk::RESPONSE_OK) return std::nullopt;
    if (full.get_active()) return std::optional<std::int64_t>();
    return std::optional<std::int64_t>(std::llround(slider.get_value()));
}

}  // namespace velmora
