#pragma once

#include <memory>
#include <vector>

#include <gtkmm/box.h>
#include <gtkmm/button.h>
#include <gtkmm/label.h>
#include <gtkmm/liststore.h>
#include <gtkmm/paned.h>
#include <gtkmm/scrolledwindow.h>
#include <gtkmm/treeview.h>
#include <gtkmm/window.h>

#include "tournament/standings_sheet.h"

namespace velmora {

/// A list of texts with a head: what a sheet's parts are shown in.
class TextTableView : public Gtk::ScrolledWindow {
public:
    /// @param name  by which a screen reader knows it
    explicit TextTableView(const Glib::ustring& name);

    struct Column {
        Glib::ustring title;
        Glib::ustring meaning;  ///< shown while the pointer rests on the title; may be empty
        bool is_number = true;  ///< set right
    };
    /// Shows rows of as many texts as there are columns; the selected row stays.
    void show_rows(const std::vector<Column>& columns, const std::vector<std::vector<std::string>>& rows);

private:
    void set_columns(const std::vector<Column>& columns);

    Gtk::TreeModel::ColumnRecord m_record;
    std::vector<Gtk::TreeModelColumn<Glib::ustring>> m_texts;
    std::vector<Glib::ustring> m_titles;
    Glib::RefPtr<Gtk::ListStore> m_store;
    Gtk::TreeView m_view;
};

/// The window "Standings": table, cross table and open games of a tournament, and a button that copies them.
class StandingsWindow : public Gtk::Window {
public:
    StandingsWindow();

    void show_sheet(const StandingsSheet& sheet);

private:
    StandingsSheet m_sheet;
    Gtk::Box m_box{Gtk::ORIENTATION_VERTICAL};
    Gtk::Label m_title, m_open_title;
    TextTableView m_table{"Standings"}, m_cross_table{"Cross table"}, m_open{"Open games"};
    Gtk::Paned m_tables{Gtk::ORIENTATION_VERTICAL}, m_all{Gtk::ORIENTATION_VERTICAL};
    Gtk::Box m_cross_box{Gtk::ORIENTATION_VERTICAL}, m_open_box{Gtk::ORIENTATION_VERTICAL};
    Gtk::Label m_cross_title;
    Gtk::Button m_copy{"_Copy", true};
};

}  // namespace velmora
