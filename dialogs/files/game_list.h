#pragma once

#include <cstdint>
#include <string>

#include "dialogs/files/chooser_list.h"

namespace velmora {

/// The dialog "Choose Game" over the headers of a PGN file.
///
/// Only headers are read here and no moves; so a large file is listed soon, and a game whose moves are
/// broken can be chosen like any other, and the fault is told when it is loaded.
class GameList : public ChooserList {
public:
    class ModelColumns : public NumberedColumns {
    public:
        ModelColumns() {
            add(white);
            add(black);
            add(result);
            add(date);
        }
        Gtk::TreeModelColumn<Glib::ustring> white;
        Gtk::TreeModelColumn<Glib::ustring> black;
        Gtk::TreeModelColumn<Glib::ustring> result;
        Gtk::TreeModelColumn<Glib::ustring> date;
    };

    GameList();

    /// Lets the user pick a game of the file; gives its number among the headers, from 1, or 0 when none was
    /// chosen. A file that can't be opened shows an empty list.
    int choose_game(Gtk::Window& parent, const std::string& path);

    /// Where the chosen game begins, in bytes from the start of the file, so that only it need be read.
    std::uint64_t chosen_offset() const { return m_chosen_offset; }

private:
    explicit GameList(const ModelColumns& columns);

    std::uint64_t m_chosen_offset = 0;
};

}  // namespace velmora
