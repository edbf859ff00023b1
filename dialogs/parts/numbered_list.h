#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include <gtkmm/liststore.h>
#include <gtkmm/scrolledwindow.h>
#include <gtkmm/treemodelcolumn.h>
#include <gtkmm/treeview.h>

namespace velmora {

/// The columns of a list whose first one is the running number; the texts follow in the order of display.
class NumberedColumns : public Gtk::TreeModelColumnRecord {
public:
    NumberedColumns() { add(id); }
    Gtk::TreeModelColumn<int> id;
};

/// A scrolled list of rows of text, numbered from 1, of which one is picked.
///
/// Typing searches all columns; a double click or Enter on a row is an answer. The rows have one height and
/// the columns a fixed width, so that hundreds of thousands of rows are quick.
///
/// A tree view measures each row it has, unless all have one height and all columns a fixed width; and it
/// is told of each row that a store in view gets. The two stores are for that: while a file is being
/// listed, rows go into one that no view watches, and what is on the screen is the few that came first.
class NumberedList : public Gtk::ScrolledWindow {
public:
    /// The texts of one row, without the number. They must be valid UTF-8.
    using Cells = std::vector<std::string>;

    struct TextColumn {
        Gtk::TreeModelColumn<Glib::ustring> column;
        const char* title;
        int width_chars;
        bool takes_spare_width;
    };

    /// `texts` are the columns behind the number, in the order in which they were added to `columns`.
    NumberedList(const NumberedColumns& columns, std::vector<TextColumn> texts);

    /// Adds a row with the next number.
    void append(const Cells& cells);
    void clear();
    /// The rows, those out of sight included.
    std::size_t size() const { return m_size; }

    /// From here on rows are added out of sight, at half the cost; those that there are stay on the screen.
    void start_bulk();
    /// Shows all rows. What is selected and where the list has been scrolled to stays.
    void finish_bulk();

    /// Selects the first row, scrolls to it and lets typing go to the list. Nothing in an empty list.
    void select_first();

    /// The index, from 0, of the selected row.
    std::optional<std::size_t> selected();

    /// A row was double-clicked or Enter pressed on it; selected() tells which.
    sigc::signal<void>& signal_answered() { return m_answered; }

private:
    void add_column(const Gtk::TreeModelColumnBase& model_column, const char* title, int width_chars,
                    bool takes_spare_width, float alignment);
    void show_store(const Glib::RefPtr<Gtk::ListStore>& store);
    bool shows_selected();
    bool is_mismatch(const Glib::ustring& key, const Gtk::TreeModel::iterator& row) const;

    const Gtk::TreeModelColumn<int> m_number;
    const std::vector<TextColumn> m_texts;
    const Glib::RefPtr<Gtk::ListStore> m_store;
    const Glib::RefPtr<Gtk::ListStore> m_first_rows;  // on show during a bulk, in place of m_store
    Gtk::TreeView m_view;
    std::size_t m_size = 0;
    bool m_in_bulk = false;
    bool m_must_show_selected = false;  // it was selected, but not drawn since
    sigc::signal<void> m_answered;
};

}  // namespace velmora
