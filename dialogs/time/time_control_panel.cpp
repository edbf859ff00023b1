#include "dialogs/time/time_control_panel.h"

#include <algorithm>
#include <vector>

#include "base/text.h"
#include "dialogs/parts/modal_dialog.h"

namespace velmora {

/// `column` is that of the entry in the grid; its label stands to the left of it.
struct TimeControlPanel::FieldDescription {
    const char* label;
    const char* start_text;
    int column;
};

struct TimeControlPanel::ModeDescription {
    const char* label;
    const char* prefix;
    std::vector<FieldDescription> fields;
};

TimeControlPanel::TimeControlPanel() : TimeControlPanel(Level()) {}

TimeControlPanel::TimeControlPanel(const Level& level) : m_level(level) {
    set_row_spacing(ModalDialog::row_spacing);
    constexpr int moves_column = 2;
    const FieldDescription limit{"", "", moves_column};
    const FieldDescription moves{" Moves: ", "40", moves_column};
    const FieldDescription base{" Base (mm:ss): ", "0:10", moves_column + 2};
    const FieldDescription increment{" Inc (sec): ", "0.1", moves_column + 4};
    add_mode({"fixed depth", "fixed_depth ", {limit}});
    add_mode({"fixed nodes", "fixed_nodes ", {limit}});
    add_mode({"fixed movetime (ms)", "fixed_movetime ", {limit}});
    add_mode({"sudden death", "sudden_death 0 ", {base, increment}});
    add_mode({"sessions", "sessions ", {moves, base, increment}});
    show_level();
    for (auto& mode : m_modes) {
        for (auto& entry : mode.entries) {
            entry.signal_changed().connect([&mode] { mode.button.set_active(true); });
        }
    }
}

void TimeControlPanel::add_mode(const ModeDescription& description) {
    const int row = static_cast<int>(m_modes.size());
    Mode& mode = m_modes.emplace_back();
    mode.prefix = description.prefix;
    mode.button.set_label(description.label);
    mode.button.set_margin_end(ModalDialog::column_spacing);
    if (row > 0) mode.button.join_group(m_modes.front().button);
    attach(mode.button, 0, row);
    for (const auto& field : description.fields) {
        Gtk::Label& label = mode.labels.emplace_back(field.label, Gtk::ALIGN_END);
        Gtk::Entry& entry = mode.entries.emplace_back();
        label.set_mnemonic_widget(entry);
        entry.set_text(field.start_text);
        entry.set_width_chars(7);
        label.set_margin_start(ModalDialog::row_spacing);
        entry.set_activates_default(true);
        attach(label, field.column - 1, row);
        attach(entry, field.column, row);
    }
}

void TimeControlPanel::show(const Level& level) {
    m_level = level;
    show_level();
}

void TimeControlPanel::show_level() {
    Mode& mode = m_modes.at(static_cast<std::size_t>(m_level.level_t()));
    mode.button.set_active(true);
    const std::string text = m_level.text();
    const auto words = text::words(std::string_view(text).substr(mode.prefix.size()));
    for (std::size_t i = 0; i < std::min(words.size(), mode.entries.size()); ++i) {
        mode.entries[i].set_text(std::string(words[i]));
    }
}

/// Read onto the level that was shown, of which the present mode may leave parts untouched.
Level TimeControlPanel::level() {
    for (const auto& mode : m_modes) {
        if (!mode.button.get_active()) continue;
        std::string text = mode.prefix;
        for (const auto& entry : mode.entries) text += entry.get_text().raw() + " ";
        m_level.set(text);
    }
    return m_level;
}

}  // namespace velmora
