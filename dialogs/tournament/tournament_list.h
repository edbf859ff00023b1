#pragma once

#include <string>
#include <vector>

#include <gtkmm/box.h>

#include "dialogs/parts/numbered_list.h"
#include "tournament/tournament_choice.h"

namespace velmora {

/// The list of the tournaments on disk.
///
/// The names come in and the files aren't looked at: listing must not fail because one file is broken.
class TournamentList : public Gtk::VBox {
public:
    class ModelColumns : public NumberedColumns {
    public:
        ModelColumns() { add(name); }
        Gtk::TreeModelColumn<Glib::ustring> name;
    };

    explicit TournamentList(std::vector<std::string> names);

    /// The name in the selected row, empty when none is.
    std::string selected();

    void select_first() { m_list.select_first(); }
    /// A row was double-clicked or Enter pressed on it.
    sigc::signal<void>& signal_answered() { return m_list.signal_answered(); }

private:
    TournamentList(std::vector<std::string> names, const ModelColumns& columns);

    const std::vector<std::string> m_names;  // in row order, as they stand on disk
    NumberedList m_list;
};

/// The dialog "Load Tournament". "LOAD" without a selected row leaves it open; "DELETE" without one, and
/// leaving it in another way than by "CANCEL", are no action.
TournamentChoice choose_tournament(Gtk::Window& parent, const std::vector<std::string>& names);

}  // namespace velmora
