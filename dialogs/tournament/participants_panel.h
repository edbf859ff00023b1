#pragma once

#include <string>
#include <vector>

#include <gtkmm/box.h>
#include <gtkmm/label.h>

#include "dialogs/tournament/delete_selection.h"

namespace velmora {

/// Two lists side by side, the engines that take part in a tournament on the right, the other installed ones
/// on the left. A click on a row moves the engine to the other list.
///
/// The order on the right is that of the schedule, so rows are appended and never sorted.
class ParticipantsPanel : public Gtk::Box {
public:
    using ModelColumns = DeleteSelection::MyColumns;

    /// `installed` are the names of all engines, `chosen` those on the right from the start.
    ParticipantsPanel(const std::vector<std::string>& installed, const std::vector<std::string>& chosen,
                      Stopwatch::TimeSource now = Stopwatch::steady_time);

    /// The names on the right, in row order.
    std::vector<std::string> chosen() const { return m_chosen.selected(); }

private:
    void move(DeleteSelection& from, DeleteSelection& to);

    Gtk::Label m_hint;
    Gtk::HBox m_lists;
    Gtk::Box m_installed_side{Gtk::ORIENTATION_VERTICAL};
    Gtk::Box m_chosen_side{Gtk::ORIENTATION_VERTICAL};
    Gtk::Label m_installed_title{"Installed engines", Gtk::ALIGN_START};
    Gtk::Label m_chosen_title{"Participants", Gtk::ALIGN_START};
    DeleteSelection m_installed;
    DeleteSelection m_chosen;
    bool m_moving = false;
};

}  // namespace velmora
