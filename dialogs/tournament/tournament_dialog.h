#pragma once

#include <deque>
#include <string>
#include <vector>

#include <gtkmm/box.h>
#include <gtkmm/button.h>
#include <gtkmm/checkbutton.h>
#include <gtkmm/comboboxtext.h>
#include <gtkmm/entry.h>
#include <gtkmm/filechooserbutton.h>
#include <gtkmm/grid.h>
#include <gtkmm/label.h>
#include <gtkmm/notebook.h>

#include "dialogs/parts/modal_dialog.h"
#include "dialogs/time/time_control_panel.h"
#include "dialogs/tournament/participants_panel.h"
#include "tournament/tournament.h"
#include "tournament/tournament_data.h"

namespace velmora {

/// The dialog "Tournament", in which a tournament is made or changed.
///
/// It only asks: whoever runs it takes what was entered, saves it and has it played.
///
/// The event names the file. So it is the one field that is checked here: under the name of another
/// tournament the results of that one would be lost.
class TournamentDialog : public ModalDialog {
public:
    enum Answer { cancel = 0, ok = 1 };

    /// Begins with the values of `tournament`, but for an event whose file holds the results of another
    /// tournament: instead of it a free one is proposed.
    /// @param installed  the names of the engines that can take part
    TournamentDialog(Gtk::Window& parent, const Tournament& tournament,
                     const std::vector<std::string>& installed);

    /// Asks until there is an answer. "OK" with an event whose file holds the results of another tournament
    /// is none: a free event is proposed instead.
    int run();

    /// The user's values, without a schedule; of the participants the names alone.
    TournamentData entered();

private:
    void add_event_page(const Tournament& tournament);
    void add_row(const char* label, Gtk::Widget& field);
    std::string entered_event() const;
    bool propose_free_event();

    const Tournament m_original;
    Gtk::Notebook m_pages;

    Gtk::Grid m_event_page;
    int m_row = 0;  // the next free one
    std::deque<Gtk::Label> m_labels;
    Gtk::Entry m_event;
    Gtk::Label m_event_note;
    Gtk::Entry m_site;
    Gtk::Entry m_rounds;
    Gtk::ComboBoxText m_type;
    Gtk::Box m_book_row;
    Gtk::FileChooserButton m_book_button{"Select  PGN/EPD book", Gtk::FILE_CHOOSER_ACTION_OPEN};
    Gtk::Button m_no_book{"No book"};
    std::string m_book;  // path, empty for none
    Gtk::CheckButton m_random_order{"openings in random order"};
    Gtk::CheckButton m_both_colors{"both colors"};
    Gtk::CheckButton m_ignore_time_loss{"ignore loss on time"};

    ParticipantsPanel m_participants;
    TimeControlPanel m_time_control;
};

}  // namespace velmora
