#include "dialogs/tournament/ds_tree_view.h"

#include <memory>

#include <gtkmm/main.h>

namespace velmora {
namespace {

bool handling_a_key() {
    const std::unique_ptr<GdkEvent, decltype(&gdk_event_free)> event(gtk_get_current_event(), gdk_event_free);
    return event && event->type == GDK_KEY_PRESS;
}

}  // namespace

bool DSTreeView::on_button_release_event(GdkEventButton* event) {
    const bool handled = Gtk::TreeView::on_button_release_event(event);
    constexpr guint first_button = 1;
    if (event->button != first_button || event->window != get_bin_window()->gobj()) return handled;
    Gtk::TreeModel::Path under_pointer, cursor;
    Gtk::TreeViewColumn* column = nullptr;
    get_cursor(cursor, column);
    int cell_x = 0, cell_y = 0;
    const bool on_row = get_path_at_pos(static_cast<int>(event->x), static_cast<int>(event->y), under_pointer,
                                        column, cell_x, cell_y);
    if (on_row && under_pointer == cursor) m_row_reached.emit();
    return handled;
}

void DSTreeView::on_cursor_changed() {
    Gtk::TreeView::on_cursor_changed();
    if (!m_getting_focus && handling_a_key()) m_row_reached.emit();
}

void DSTreeView::on_row_activated(const Gtk::TreeModel::Path& path, Gtk::TreeViewColumn* column) {
    Gtk::TreeView::on_row_activated(path, column);
    if (handling_a_key()) m_row_reached.emit();
}

bool DSTreeView::on_focus(Gtk::DirectionType direction) {
    m_getting_focus = true;
    const bool focused = Gtk::TreeView::on_focus(direction);
    m_getting_focus = false;
    return focused;
}

}  // namespace velmora
