#pragma once

#include <functional>
#include <string>
#include <vector>

#include <gtkmm/actiongroup.h>
#include <gtkmm/radioaction.h>
#include <gtkmm/toggleaction.h>
#include <gtkmm/uimanager.h>

#include "window/session/mode.h"

namespace velmora {

struct Rooms;

/// One row of the table that menu bar and actions are made from.
///
/// A row of kind `menu` begins a menu; those behind it, up to the next of its kind, are what it shows from
/// top to bottom.
///
/// A table is what can be read as the menu, from top to bottom; what an entry does stands with its label,
/// and a test can walk it. The function gets the rooms instead of capturing them, so that the table is
/// constant.
struct ActionRow {
    enum class Kind { menu, separator, plain, toggle, radio };

    Kind kind = Kind::separator;
    const char* name = "";  ///< of the action; a separator has none
    const char* label = "";
    /// What it brings about; `on` is the state of a toggle or radio action, true for a plain one.
    std::function<void(Rooms& rooms, bool on)> run = {};
    const char* accelerator = "";
};

/// The menu bar's actions: built from one table, reached by name.
///
/// Radio actions are the one place where the mode is kept. Who wants another mode selects the action, and
/// what is to follow comes by its signal, whether a person or the referee was the cause.
class Actions {
public:
    /// Builds actions, groups and menu bar; entries call into `rooms`, which must outlive them. A UI string
    /// that the toolkit rejects is reported on standard error and leaves a program without a menu.
    explicit Actions(Rooms& rooms);

    static const std::vector<ActionRow>& table();
    /// The menus and entries of the table in the toolkit's language.
    static std::string ui_string();

    /// The menu bar, null when it could not be built.
    Gtk::Widget* menu_bar();
    Glib::RefPtr<Gtk::AccelGroup> accelerators();

    void set_sensitive(const char* action, bool sensitive);
    /// Sets a toggle action; what it brings about happens before this returns.
    void set_active(const char* action, bool active);

    Mode mode() const;
    void select_mode(Mode mode);

    Glib::RefPtr<Gtk::UIManager> ui() { return m_ui; }

private:
    void add(const ActionRow& row);
    Glib::RefPtr<Gtk::ToggleAction> toggle(const char* action) const;

    Rooms& m_rooms;
    Glib::RefPtr<Gtk::ActionGroup> m_group;
    Glib::RefPtr<Gtk::UIManager> m_ui;
    Gtk::RadioAction::Group m_modes;
};

}  // namespace velmora
