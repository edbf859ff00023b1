#pragma once

#include <deque>

#include <gtkmm/entry.h>
#include <gtkmm/grid.h>
#include <gtkmm/label.h>

#include "dialogs/parts/fitting_scroller.h"
#include "dialogs/parts/modal_dialog.h"
#include "engine/store/engine_variables.h"
#include "engine/store/installed_engines.h"

namespace velmora {

/// The dialog "Install engine": records a loaded engine under a name in the list of installed engines.
///
/// The engine runs when it is installed, which is how its options are known here. What the dialog doesn't
/// show of the record is stored as it is.
class InstallDialog : public ModalDialog {
public:
    /// Reads the list, from which an engine of that name takes its Elo and handicap.
    InstallDialog(Gtk::Window& parent, EngineVariables engine,
                  InstalledEngines installed = InstalledEngines());

    /// Runs the dialog. With "OK" the engine is stored, replacing one of that name, and the list is written;
    /// an empty name installs nothing. A list that can't be written is told to the user.
    void install();

private:
    void add_field(const char* label, Gtk::Entry& entry, const std::string& text);
    void add_options();
    void store();

    EngineVariables m_engine;
    InstalledEngines m_installed;
    Gtk::Grid m_grid;
    int m_row = 0;  // the next free one
    /// A deque, here as in the other dialogs: the grid knows where a widget is, so it must stay there while
    /// the list grows.
    std::deque<Gtk::Label> m_labels;
    Gtk::Entry m_name;
    Gtk::Entry m_elo;
    Gtk::Entry m_handicap;
    FittingScroller m_scroller;
    Gtk::Grid m_options;
};

}  // namespace velmora
