#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtkmm/box.h>
#include <gtkmm/label.h>
#include <gtkmm/progressbar.h>
#include <gtkmm/window.h>

#include "dialogs/files/entry_reader.h"
#include "dialogs/parts/numbered_list.h"

namespace velmora {

/// The entries of a file in a modal dialog, from which the user picks one.
///
/// A file of any size may be listed: the reader has a thread of its own, the list fills in small batches
/// while the window stays alive, and the user may answer at any time.
///
/// Collections of games reach gigabytes. To read one ahead of the dialog would leave the person before a
/// dead window; to read it on the main thread in pieces would tie the speed of reading to that of the list.
/// The batches are small enough that a click between two of them is answered at once.
class ChooserList : public Gtk::Box {
public:
    ~ChooserList() override;

protected:
    /// What was picked: its number, from 1, and the entry without its cells.
    struct Choice {
        int number = 0;
        FileEntry entry;
    };

    /// `noun` names one of what is listed; its plural ends in "s".
    ChooserList(const NumberedColumns& columns, const std::vector<NumberedList::TextColumn>& texts,
                std::string noun);

    /// Runs the dialog; nothing when it was cancelled or no row was selected.
    std::optional<Choice> choose(Gtk::Window& parent, const Glib::ustring& title,
                                 EntryReader::OpenSource open_source);

    /// The file has been listed to its end; the dialog is still open.
    virtual void on_listed() {}
    /// The dialog is being left.
    virtual void on_left() {}

    /// What is listed, in its order. Cells are empty: the list has them.
    const std::vector<FileEntry>& entries() const { return m_entries; }
    /// Adds an entry behind all others. REQUIRES: the file has been listed.
    void add_entry(FileEntry entry);

private:
    void start(EntryReader::OpenSource open_source);
    void stop();
    bool fill();
    void show_progress(bool complete);

    const std::string m_noun;
    NumberedList m_list;
    Gtk::Box m_status{Gtk::ORIENTATION_HORIZONTAL};
    Gtk::Label m_count;
    Gtk::ProgressBar m_progress_bar;

    std::unique_ptr<EntryReader> m_reader;  // null when no file is being listed
    bool m_reading = false;                 // entries may still come
    std::vector<FileEntry> m_entries;       // the list shows the first ones of these
    sigc::connection m_timer;
    std::chrono::steady_clock::time_point m_progress_shown;
};

}  // namespace velmora
