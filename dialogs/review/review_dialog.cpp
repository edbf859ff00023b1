#include "dialogs/review/review_dialog.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <string>

#include <gtkmm/comboboxtext.h>
#include <gtkmm/grid.h>
#include <gtkmm/label.h>
#include <gtkmm/radiobutton.h>
#include <gtkmm/spinbutton.h>

#include "dialogs/parts/modal_dialog.h"

namespace velmora {

namespace {

constexpr double ms_per_s = 1000;

/// A way to say how much the engine gets for a position.
struct Effort {
    LevelType type;
    const char* label;
    const char* word;  // in the text form of a level
    double scale;      // of the number in the dialog to the level's
    unsigned digits;
    double least, most, step, preset;  // as the dialog shows them
};

constexpr std::array<Effort, 3> efforts = {{
    {LevelType::fixed_movetime, "Seconds a move", "fixed_movetime", ms_per_s, 1, 0.1, 3600, 0.1, 0.5},
    {LevelType::fixed_depth, "Depth", "fixed_depth", 1, 0, 1, 100, 1, 18},
    {LevelType::fixed_nodes, "Nodes", "fixed_nodes", 1, 0, 1000, 2e9, 100000, 1000000},
}};

double shown_amount(const Effort& effort, const Level& level) {
    if (level.level_t() != effort.type) return effort.preset;
    switch (effort.type) {
        case LevelType::fixed_depth:
            return level.depth();
        case LevelType::fixed_nodes:
            return level.nodes();
        default:
            return level.movetime() / effort.scale;
    }
}

/// The efforts, one a row. Changing a number picks its row.
class EffortGrid : public Gtk::Grid {
public:
    explicit EffortGrid(const Level& level) {
        set_row_spacing(ModalDialog::row_spacing);
        set_column_spacing(ModalDialog::column_spacing);
        for (std::size_t row = 0; row < efforts.size(); ++row) add_effort(row, level);
    }

    Level level() const {
        for (std::size_t row = 0; row < efforts.size(); ++row) {
            if (!m_buttons[row].get_active()) continue;
            const auto amount = std::llround(m_numbers[row].get_value() * efforts[row].scale);
            return Level(std::string(efforts[row].word) + ' ' + std::to_string(amount));
        }
        return {};
    }

private:
    void add_effort(std::size_t row, const Level& level) {
        const Effort& effort = efforts[row];
        Gtk::RadioButton& button = m_buttons[row];
        Gtk::SpinButton& number = m_numbers[row];
        button.set_label(effort.label);
        if (row > 0) button.join_group(m_buttons.front());
        number.set_digits(effort.digits);
        number.set_range(effort.least, effort.most);
        number.set_increments(effort.step, effort.step * 10);
        number.set_value(shown_amount(effort, level));
        number.set_activates_default();
        number.get_accessible()->set_name(effort.label);
        if (level.level_t() == effort.type) button.set_active();
        number.signal_changed().connect([&button] { button.set_active(); });
        attach(button, 0, static_cast<int>(row));
        attach(number, 1, static_cast<int>(row));
    }

    std::array<Gtk::RadioButton, efforts.size()> m_buttons;
    std::array<Gtk::SpinButton, efforts.size()> m_numbers;
};

}  // namespace

std::optional<ReviewSettings> ask_review(Gtk::Window& parent, const ReviewSettings& settings) {
    ModalDialog dialog("Review game", parent);
    EffortGrid effort(settings.level);
    Gtk::ComboBoxText sides;
    Gtk::Label sides_label("_Judge the moves of", true);
    for (const char* each : {"Both sides", "White", "Black"}) sides.append(each);
    sides.set_active(settings.white && settings.black ? 0 : settings.white ? 1 : 2);
    sides.get_accessible()->set_name("Judge the moves of");
    sides_label.set_mnemonic_widget(sides);
    sides_label.set_xalign(0);
    constexpr int row_of_sides = static_cast<int>(efforts.size());
    effort.attach(sides_label, 0, row_of_sides);
    effort.attach(sides, 1, row_of_sides);
    dialog.body().pack_start(effort, Gtk::PACK_SHRINK);
    dialog.add_note(
        "The engine goes through the game from its end to its beginning. What it has judged "
        "before with as much effort isn't searched again.");
    dialog.add_answer("Cancel", Gtk::RESPONSE_CANCEL);
    dialog.add_answer("Review", Gtk::RESPONSE_OK);
    dialog.set_default_response(Gtk::RESPONSE_OK);
    if (dialog.run() != Gtk::RESPONSE_OK) return std::nullopt;
    const int chosen = sides.get_active_row_number();
    return ReviewSettings{effort.level(), chosen != 2, chosen != 1};
}

}  // namespace velmora
