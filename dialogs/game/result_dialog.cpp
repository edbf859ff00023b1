#include "dialogs/game/result_dialog.h"

#include <array>

#include <gtkmm/comboboxtext.h>
#include <gtkmm/entry.h>
#include <gtkmm/grid.h>
#include <gtkmm/label.h>

#include "dialogs/parts/modal_dialog.h"

namespace velmora {

namespace {

struct NamedResult {
    GameResult result;
    const char* text;
};
constexpr std::array<NamedResult, 3> results = {{{GameResult::white_wins, "1-0, White has won"},
                                                 {GameResult::draw, "1/2-1/2, a draw"},
                                                 {GameResult::black_wins, "0-1, Black has won"}}};

constexpr int longest_reason = 80;

void add_field(Gtk::Grid& grid, int row, Gtk::Label& label, Gtk::Widget& field) {
    label.set_xalign(0);
    label.set_mnemonic_widget(field);
    field.set_hexpand();
    grid.attach(label, 0, row, 1, 1);
    grid.attach(field, 1, row, 1, 1);
}

}  // namespace

std::optional<GameOutcome> ask_result(Gtk::Window& parent, const std::optional<GameOutcome>& known) {
    ModalDialog dialog("Result", parent);
    Gtk::Grid grid;
    grid.set_row_spacing(ModalDialog::row_spacing);
    grid.set_column_spacing(ModalDialog::column_spacing);
    Gtk::Label result_label("_Result", true), reason_label("R_eason", true);
    Gtk::ComboBoxText result;
    Gtk::Entry reason;
    for (const auto& named : results) result.append(named.text);
    result.set_active(1);
    if (known) {
        for (std::size_t row = 0; row < results.size(); ++row) {
            if (results[row].result == known->result) result.set_active(static_cast<int>(row));
        }
        reason.set_text(known->reason);
    }
    reason.set_max_length(longest_reason);
    reason.set_activates_default();
    add_field(grid, 0, result_label, result);
    add_field(grid, 1, reason_label, reason);
    dialog.body().pack_start(grid, Gtk::PACK_SHRINK);
    dialog.add_note("The game goes into the archive.");
    dialog.add_answer("Cancel", Gtk::RESPONSE_CANCEL);
    dialog.add_answer("Note", Gtk::RESPONSE_OK);
    dialog.set_default_response(Gtk::RESPONSE_OK);
    reason.grab_focus();  // in the list above it Enter would open the list
    if (dialog.run() != Gtk::RESPONSE_OK || result.get_active_row_number() < 0) return std::nullopt;
    const auto row = static_cast<std::size_t>(result.get_active_row_number());
    return GameOutcome{results.at(row).result, reason.get_text().raw()};
}

}  // namespace velmora
