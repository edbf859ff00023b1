#include "window/file_chooser.h"

#include <array>
#include <vector>

#include <glibmm/miscutils.h>
#include <gtkmm/filefilter.h>

namespace velmora {

namespace {

/// By the number of the FileKind. Engines are told by their type, for programs have no extension here.
struct KindRow {
    Gtk::FileChooserAction action;
    const char* filter_name;
    std::vector<const char*> patterns;
    const char* mime_type;  // in place of patterns
};

const KindRow& row(FileKind kind) {
    static const std::array<KindRow, 7> rows = {{
        {Gtk::FILE_CHOOSER_ACTION_OPEN, "FEN files", {"*.fen", "*.epd"}, nullptr},
        {Gtk::FILE_CHOOSER_ACTION_SAVE, "FEN files", {"*.fen", "*.epd"}, nullptr},
        {Gtk::FILE_CHOOSER_ACTION_OPEN, "PGN files", {"*.pgn"}, nullptr},
        {Gtk::FILE_CHOOSER_ACTION_OPEN, "PGN/EPD files", {"*.pgn", "*.epd"}, nullptr},
        {Gtk::FILE_CHOOSER_ACTION_SAVE, "PGN files", {"*.pgn"}, nullptr},
        {Gtk::FILE_CHOOSER_ACTION_OPEN, "engine", {}, "application/octet-stream"},
        {Gtk::FILE_CHOOSER_ACTION_OPEN, "Polyglot books", {"*.bin"}, nullptr},
    }};
    return rows.at(static_cast<std::size_t>(kind));
}

Glib::RefPtr<Gtk::FileFilter> filter(const char* name, const std::vector<const char*>& patterns,
                                     const char* mime_type) {
    auto result = Gtk::FileFilter::create();
    result->set_name(name);
    for (const char* pattern : patterns) result->add_pattern(pattern);
    if (mime_type) result->add_mime_type(mime_type);
    return result;
}

}  // namespace

std::string FileChooser::choose(FileKind kind) {
    const KindRow& kind_row = row(kind);
    const bool saves = kind_row.action == Gtk::FILE_CHOOSER_ACTION_SAVE;
    m_dialog = std::make_unique<Gtk::FileChooserDialog>(m_parent, "Choose File", kind_row.action);
    Gtk::FileChooserDialog& dialog = *m_dialog;
    dialog.add_button("_Cancel", Gtk::RESPONSE_CANCEL);
    dialog.add_button(saves ? "_Save" : "_Open", Gtk::RESPONSE_ACCEPT);
    dialog.set_default_response(Gtk::RESPONSE_ACCEPT);
    dialog.set_local_only(true);
    // Games are appended to a file that is there; a position replaces it.
    dialog.set_do_overwrite_confirmation(kind == FileKind::save_position);
    dialog.add_filter(filter(kind_row.filter_name, kind_row.patterns, kind_row.mime_type));
    if (kind == FileKind::engine) {
        // Shared-object executables, scripts and plain executables have types of their own.
        const auto programs = dialog.list_filters().front();
        for (const char* type : {"application/x-executable", "application/x-sharedlib",
                                 "application/x-pie-executable", "application/x-shellscript"}) {
            programs->add_mime_type(type);
        }
    }
    dialog.add_filter(filter("Text files", {}, "text/plain"));
    dialog.add_filter(filter("Any files", {"*"}, nullptr));
    std::string& folder = kind == FileKind::engine ? m_engine_folder : m_folder;
    dialog.set_current_folder(folder.empty() ? Glib::get_current_dir() : folder);
    std::string path;
    if (dialog.run() == Gtk::RESPONSE_ACCEPT) {
        // Not the dialog's folder: it has none while it lists the files used last.
        path = dialog.get_filename();
        if (!path.empty()) folder = Glib::path_get_dirname(path);
    }
    dialog.hide();
    return path;
}

}  // namespace velmora
