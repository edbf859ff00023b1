#include "views/moves/moves_menu.h"

#include <gtkmm/separatormenuitem.h>

#include "game/move_symbols.h"

namespace velmora {

void MovesMenu::fill(const SheetItem* move, const SignOf& sign_of) {
    for (Gtk::Widget* child : m_menu.get_children()) m_menu.remove(*child);
    const auto node = move ? move->node : 0;
    const bool varies = move && move->depth > 0;
    append("_Promote variation", {MoveAction::promote, node, {}}, varies);
    append("_Make main line", {MoveAction::make_main_line, node, {}}, varies);
    append("Delete _variation", {MoveAction::delete_variation, node, {}}, varies);
    append("_Delete from here", {MoveAction::delete_from_here, node, {}}, move != nullptr);
    m_menu.append(*Gtk::manage(new Gtk::SeparatorMenuItem));
    append_symbols(move, sign_of);
    append("_Comment...", {MoveAction::edit_comment, node, {}}, move != nullptr);
    m_menu.show_all();
}

Gtk::MenuItem& MovesMenu::new_entry(Gtk::Menu& menu, const Glib::ustring& label, MoveRequest request,
                                    bool sensitive) {
    auto& entry = *Gtk::manage(new Gtk::MenuItem(label, true));
    entry.set_sensitive(sensitive);
    entry.signal_activate().connect([this, request = std::move(request)] { m_wish(request); });
    menu.append(entry);
    return entry;
}

void MovesMenu::append(const Glib::ustring& label, MoveRequest request, bool sensitive) {
    new_entry(m_menu, label, std::move(request), sensitive);
}

/// The one that the move has can't be chosen again.
void MovesMenu::append_symbols(const SheetItem* move, const SignOf& sign_of) {
    auto& title = *Gtk::manage(new Gtk::MenuItem("_Symbol", true));
    auto& symbols = *Gtk::manage(new Gtk::Menu);
    for (const MoveSymbol& symbol : move_symbols()) {
        const std::string glyph(symbol.glyph);
        const auto label = sign_of(glyph) + "  " + std::string(symbol.name);
        new_entry(symbols, label, {MoveAction::set_symbol, move ? move->node : 0, glyph},
                  move && move->glyph != symbol.glyph);
    }
    symbols.append(*Gtk::manage(new Gtk::SeparatorMenuItem));
    new_entry(symbols, "_No symbol", {MoveAction::set_symbol, move ? move->node : 0, {}},
              move && !move->glyph.empty());
    title.set_submenu(symbols);
    title.set_sensitive(move != nullptr);
    m_menu.append(title);
}

}  // namespace velmora
