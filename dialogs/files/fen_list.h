#pragma once

#include <string>

#include "dialogs/files/chooser_list.h"

namespace velmora {

/// The dialog "Choose Position" over a file of positions, one a line.
class FenList : public ChooserList {
public:
    class ModelColumns : public NumberedColumns {
    public:
        ModelColumns() { add(fen); }
        Gtk::TreeModelColumn<Glib::ustring> fen;
    };

    FenList();

    /// Lets the user pick a line of the file: gives its number among the lines that are not empty, from 1,
    /// and stores its text in `fen`. Gives 0 and leaves `fen` alone when none was chosen. A file that can't
    /// be opened shows an empty list.
    /// The number is what "next position" and "previous position" count on from.
    int choose_position(Gtk::Window& parent, const std::string& path, std::string& fen);

private:
    explicit FenList(const ModelColumns& columns);
};

}  // namespace velmora
