#include "dialogs/engine/options_dialog.h"

#include <algorithm>
#include <string_view>

#include "dialogs/parts/wrapping_label.h"
#include "views/text/shown_text.h"

namespace velmora {
namespace {

constexpr int columns = 4;

constexpr int most_chars = 32;  // of a name in one line

}  // namespace

OptionsDialog::OptionsDialog(const Glib::ustring& title, Gtk::Window& parent, std::vector<Option>& options)
    : ModalDialog(title, parent) {
    constexpr int spacing = 10;
    m_grid.set_row_spacing(spacing);
    m_grid.set_column_spacing(spacing);
    add_widgets(options);
    m_scroller.add(m_grid);
    body().pack_start(m_scroller, true, true);
    add_answer("OK", Gtk::RESPONSE_OK);
    set_default_response(Gtk::RESPONSE_OK);
}

/// By type and not in the engine's order: widgets of one kind make a grid in which one finds something.
void OptionsDialog::add_widgets(std::vector<Option>& options) {
    const auto each = [&](std::string_view type, const auto& add) {
        for (std::size_t i = 0; i < std::min(options.size(), most_options); ++i) {
            if (options[i].type == type) add(options[i]);
        }
    };
    each("check", [&](Option& option) { place(m_checks.emplace_back(option)); });
    start_row();
    each("button", [&](Option& option) { place(m_buttons.emplace_back(option)); });
    start_row();
    each("spin", [&](Option& option) {
        place_name(option);
        place(m_spins.emplace_back(option));
    });
    start_row();
    each("combo", [&](Option& option) {
        place_name(option);
        place(m_combos.emplace_back(option));
    });
    each("string", [&](Option& option) {
        if (m_cell % columns != 0) start_row();
        place_name(option);
        place(m_entries.emplace_back(option), columns - 1);
    });
}

void OptionsDialog::start_row() { m_cell = (m_cell / columns + 1) * columns; }

void OptionsDialog::place(Gtk::Widget& widget, int cells) {
    widget.set_hexpand(true);
    widget.set_valign(Gtk::ALIGN_CENTER);  // beside a name of several lines
    if (auto* button = dynamic_cast<Gtk::Button*>(&widget)) {
        if (auto* label = dynamic_cast<Gtk::Label*>(button->get_child())) wrap(*label, most_chars);
    }
    m_grid.attach(widget, m_cell % columns, m_cell / columns, cells);
    m_cell += cells;
}

void OptionsDialog::place_name(const Option& option) {
    Gtk::Label& label = m_names.emplace_back(shown_text(option.name), Gtk::ALIGN_START);
    wrap(label, most_chars);
    m_grid.attach(label, m_cell % columns, m_cell / columns);
    ++m_cell;
}

}  // namespace velmora
