#pragma once

#include <memory>
#include <string>

#include <gtkmm/filechooserdialog.h>
#include <gtkmm/window.h>

#include "window/session/dialogs.h"

namespace velmora {

/// The one file dialog of the program. It opens in the folder used last; engines are first looked for where
/// the system keeps its games.
///
/// Engines have a folder of their own in its memory, for they lie with the system's programs, and games
/// with the person's files; one folder for both would lead astray at each change.
class FileChooser {
public:
    explicit FileChooser(Gtk::Window& parent) : m_parent(parent) {}

    /// The chosen path, empty when the dialog was cancelled.
    std::string choose(FileKind kind);

private:
    Gtk::Window& m_parent;
    std::string m_folder;  // used last, for files of the person's own
    std::string m_engine_folder = "/usr/games";
    /// The dialog answered last, hidden. One that goes while it looks at a folder is told of the files when
    /// its list has gone already, and the toolkit complains; hidden, it drops what it was about in its own
    /// time.
    std::unique_ptr<Gtk::FileChooserDialog> m_dialog;
};

}  // namespace velmora
