#pragma once

#include <string>
#include <vector>

#include <gtkmm/liststore.h>
#include <gtkmm/scrolledwindow.h>
#include <gtkmm/treemodelcolumn.h>

#include "dialogs/parts/click_gate.h"
#include "dialogs/tournament/ds_tree_view.h"

namespace velmora {

/// A list of engine names to which names are added and from which they are removed, by the program or by
/// clicks, which a ClickGate sorts out.
///
/// Names are kept twice since what is shown must be UTF-8, and what is found in the list of engines need
/// not be.
class DeleteSelection : public Gtk::ScrolledWindow {
public:
    class MyColumns : public Gtk::TreeModelColumnRecord {
    public:
        MyColumns() {
            add(engine);
            add(name);
        }
        Gtk::TreeModelColumn<Glib::ustring> engine;  // what is shown
        Gtk::TreeModelColumn<std::string> name;      // the same as it stands in the file, any bytes
    };

    /// Whether a change counts as a click or is made in any case.
    enum class Force { no, yes };

    explicit DeleteSelection(Stopwatch::TimeSource now = Stopwatch::steady_time);

    using Gtk::ScrolledWindow::add;
    using Gtk::ScrolledWindow::remove;

    /// Appends a row; false when the click gate was in the way.
    bool add(const std::string& name, Force force);

    /// Removes the first row of that name; false when the click gate was in the way.
    bool remove(const std::string& name, Force force);

    /// Asks the click gate for a click that changes more than this list.
    /// One question decides for the move of a row from one list to another.
    bool accept_click() { return m_gate.accept(); }

    /// All names in row order.
    std::vector<std::string> selected() const;

    /// The name under the cursor, empty when there is none.
    std::string current();

    /// The user has gone to a row; current() tells which.
    sigc::signal<void>& signal_row_reached() { return m_view.signal_row_reached(); }

private:
    MyColumns m_columns;
    Glib::RefPtr<Gtk::ListStore> m_store;
    DSTreeView m_view;
    ClickGate m_gate;
};

}  // namespace velmora
