#pragma once

#include <cstddef>
#include <deque>
#include <vector>

#include <gtkmm/grid.h>
#include <gtkmm/label.h>

#include "dialogs/engine/option_widgets.h"
#include "dialogs/parts/fitting_scroller.h"
#include "dialogs/parts/modal_dialog.h"

namespace velmora {

/// Shows the options of an engine, one widget each, and writes what the user does into them at once: there is
/// no way to take it back, so the caller keeps a copy to compare with.
///
/// A button among the options acts when the engine is told of it, which is after the dialog.
class OptionsDialog : public ModalDialog {
public:
    /// The options that are looked at; those behind them are not shown.
    static constexpr std::size_t most_options = 100;

    /// `options` must stay where it is for as long as the dialog lives. Throws std::invalid_argument for a
    /// spin option without numbers, see option_lists::for_dialog().
    OptionsDialog(const Glib::ustring& title, Gtk::Window& parent, std::vector<Option>& options);

private:
    void add_widgets(std::vector<Option>& options);
    void start_row();
    void place(Gtk::Widget& widget, int cells = 1);
    void place_name(const Option& option);

    FittingScroller m_scroller;
    Gtk::Grid m_grid;
    int m_cell = 0;  // the next free one, counted along the rows
    std::deque<Gtk::Label> m_names;
    std::deque<OptionCheckButton> m_checks;
    std::deque<OptionButton> m_buttons;
    std::deque<OptionSpinButton> m_spins;
    std::deque<OptionComboBoxText> m_combos;
    std::deque<OptionEntry> m_entries;
};

}  // namespace velmora
