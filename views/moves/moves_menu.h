#pragma once

#include <functional>

#include <gtkmm/menu.h>

#include "game/move_sheet.h"
#include "views/moves/move_request.h"
#include "views/moves/move_rows.h"

namespace velmora {

/// The context menu of a move. What means nothing for it is insensitive and stays in its place.
///
/// Filled anew each time: it is about another move then.
class MovesMenu {
public:
    explicit MovesMenu(std::function<void(const MoveRequest&)> wish) : m_wish(std::move(wish)) {}

    /// Fills the menu for a move; for null, of which nothing can be asked, all is insensitive.
    void fill(const SheetItem* move, const SignOf& sign_of);
    Gtk::Menu& menu() { return m_menu; }

private:
    void append(const Glib::ustring& label, MoveRequest request, bool sensitive);
    void append_symbols(const SheetItem* move, const SignOf& sign_of);
    Gtk::MenuItem& new_entry(Gtk::Menu& menu, const Glib::ustring& label, MoveRequest request,
                             bool sensitive);

    std::function<void(const MoveRequest&)> m_wish;
    Gtk::Menu m_menu;
};

}  // namespace velmora
