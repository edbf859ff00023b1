#pragma once

#include <optional>
#include <string>
#include <vector>

#include "dialogs/parts/modal_dialog.h"
#include "dialogs/parts/numbered_list.h"
#include "engine/store/engine_variables.h"
#include "engine/store/installed_engines.h"

namespace velmora {

/// The dialog "Choose Engine": the installed engines, of which one is loaded or removed.
///
/// Removing is a matter of the list alone and done here, loading one of the referee and left to the caller.
/// The program itself isn't touched by either.
class InstalledList : public ModalDialog {
public:
    class ModelColumns : public NumberedColumns {
    public:
        ModelColumns() { add(name); }
        Gtk::TreeModelColumn<Glib::ustring> name;
    };

    /// Reads the list of installed engines.
    explicit InstalledList(Gtk::Window& parent, InstalledEngines installed = InstalledEngines());

    /// Runs the dialog: "LOAD" gives the selected engine and waits for one where no row is selected.
    /// "UNINSTALL" removes it from the list and gives nothing; a list that can't be written is told to the
    /// user.
    std::optional<EngineVariables> choose();

private:
    std::optional<std::string> selected_name();
    void uninstall(const std::string& name);

    InstalledEngines m_installed;
    ModelColumns m_columns;
    NumberedList m_list;
    std::vector<std::string> m_names;  // in row order, as they stand in the file
};

}  // namespace velmora
