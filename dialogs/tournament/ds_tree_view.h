#pragma once

#include <gtkmm/treeview.h>

namespace velmora {

/// A tree view that tells when the user has gone to a row: one click is what acts, not a double click.
///
/// Counted are a click on a row, also on the one that has the cursor already, and a move of the cursor or
/// the Enter key on the keyboard. The moves that the list makes of itself are not: to its first row when it
/// gets the keyboard, to a neighbour when the row of the cursor goes.
///
/// The toolkit's own signals tell of cursors and of activated rows, not of what the person did: a click on
/// the row of the cursor changes nothing and is silent, while the end of a row moves the cursor and is
/// told.
class DSTreeView : public Gtk::TreeView {
public:
    sigc::signal<void>& signal_row_reached() { return m_row_reached; }

protected:
    bool on_button_release_event(GdkEventButton* event) override;
    void on_cursor_changed() override;
    void on_row_activated(const Gtk::TreeModel::Path& path, Gtk::TreeViewColumn* column) override;
    bool on_focus(Gtk::DirectionType direction) override;

private:
    bool m_getting_focus = false;
    sigc::signal<void> m_row_reached;
};

}  // namespace velmora
