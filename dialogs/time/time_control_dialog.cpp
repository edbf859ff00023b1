#include "dialogs/time/time_control_dialog.h"

#include <array>

#include <gtkmm/button.h>
#include <gtkmm/flowbox.h>

#include "dialogs/parts/modal_dialog.h"
#include "dialogs/time/time_control_panel.h"

namespace velmora {

namespace {

/// Minutes for the game and seconds for each move, as players write them.
struct Preset {
    const char* text;
    const char* level;
};
constexpr std::array<Preset, 6> presets = {{{"1+0", "sudden_death 0 1:00 0"},
                                            {"3+2", "sudden_death 0 3:00 2"},
                                            {"5+0", "sudden_death 0 5:00 0"},
                                            {"10+5", "sudden_death 0 10:00 5"},
                                            {"15+10", "sudden_death 0 15:00 10"},
                                            {"90+30", "sudden_death 0 90:00 30"}}};

/// A row of buttons that fill the panel; a large font breaks it.
class PresetRow : public Gtk::FlowBox {
public:
    explicit PresetRow(TimeControlPanel& panel) {
        set_selection_mode(Gtk::SELECTION_NONE);
        set_max_children_per_line(presets.size());
        set_column_spacing(ModalDialog::row_spacing);
        for (const Preset& preset : presets) {
            auto* const button = Gtk::make_managed<Gtk::Button>(preset.text);
            button->set_tooltip_text("Minutes for the game + seconds for each move");
            button->signal_clicked().connect([&panel, &preset] { panel.show(Level(preset.level)); });
            add(*button);
        }
        // The keyboard goes to the buttons, not to their places.
        for (Gtk::Widget* place : get_children()) place->set_can_focus(false);
    }
};

}  // namespace

std::optional<Level> ask_time_control(Gtk::Window& parent, const Level& level) {
    ModalDialog dialog("Time control", parent);
    TimeControlPanel panel(level);
    PresetRow preset_row(panel);
    dialog.body().pack_start(panel, true, true);
    dialog.body().pack_start(preset_row, false, false);
    dialog.add_answer("CANCEL", Gtk::RESPONSE_CANCEL);
    dialog.add_answer("OK", Gtk::RESPONSE_OK);
    dialog.set_default_response(Gtk::RESPONSE_OK);
    if (dialog.run() != Gtk::RESPONSE_OK) return std::nullopt;
    return panel.level();
}

}  // namespace velmora
