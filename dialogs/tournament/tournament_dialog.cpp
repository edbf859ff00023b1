#include "dialogs/tournament/tournament_dialog.h"

#include <gtkmm/filefilter.h>

#include "base/text.h"
#include "views/text/shown_text.h"

namespace velmora {
namespace {

std::vector<std::string> names_of(const std::vector<TournamentParticipant>& participants) {
    std::vector<std::string> names;
    names.reserve(participants.size());
    for (const auto& participant : participants) names.push_back(participant.name);
    return names;
}

}  // namespace

TournamentDialog::TournamentDialog(Gtk::Window& parent, const Tournament& tournament,
                                   const std::vector<std::string>& installed)
    : ModalDialog("Tournament", parent),
      m_original(tournament),
      m_participants(installed, names_of(tournament.participants_list())),
      m_time_control(tournament.level()) {
    set_ordinary_size(600, 440);
    add_event_page(tournament);
    m_pages.append_page(m_event_page, "Event");
    m_pages.append_page(m_participants, "Participants");
    m_pages.append_page(m_time_control, "TimeControl");
    for (Gtk::Container* page :
         {static_cast<Gtk::Container*>(&m_event_page), static_cast<Gtk::Container*>(&m_participants),
          static_cast<Gtk::Container*>(&m_time_control)}) {
        page->set_border_width(margin);
    }
    body().pack_start(m_pages, true, true);
    add_answer("CANCEL", cancel);
    add_answer("OK", ok);
    set_default_response(ok);
}

void TournamentDialog::add_event_page(const Tournament& tournament) {
    m_event_page.set_row_spacing(row_spacing);
    m_event_page.set_column_spacing(column_spacing);
    m_event.set_text(shown_text(tournament.event()));
    m_site.set_text(shown_text(tournament.site()));
    m_rounds.set_text(std::to_string(tournament.rounds()));
    add_row("Event: ", m_event);
    m_event_note.set_xalign(0);
    m_event_note.set_line_wrap();
    m_event_note.set_max_width_chars(40);
    m_event_note.set_no_show_all();
    m_event_page.attach(m_event_note, 1, m_row++);
    propose_free_event();
    add_row("Site:  ", m_site);
    add_row("Rounds: ", m_rounds);
    for (Gtk::Entry* entry : {&m_event, &m_site, &m_rounds}) entry->set_activates_default(true);

    for (const std::string_view word : tournament_type_words) m_type.append(std::string(word));
    m_type.set_active(static_cast<int>(tournament.type()));
    add_row("Type: ", m_type);

    const auto filter = Gtk::FileFilter::create();
    filter->set_name("PGN/EPD files");
    filter->add_pattern("*.pgn");
    filter->add_pattern("*.epd");
    m_book_button.add_filter(filter);
    m_book = tournament.opening_book();
    if (!m_book.empty()) m_book_button.set_filename(m_book);
    m_book_button.signal_file_set().connect([this] { m_book = m_book_button.get_filename(); });
    m_no_book.signal_clicked().connect([this] {
        m_book_button.unselect_all();
        m_book.clear();
    });
    m_book_row.set_spacing(row_spacing);
    m_book_row.pack_start(m_book_button, Gtk::PACK_EXPAND_WIDGET);
    m_book_row.pack_start(m_no_book, Gtk::PACK_SHRINK);
    add_row("Opening book: ", m_book_row);

    m_random_order.set_active(tournament.random_order());
    m_both_colors.set_active(tournament.both_colors());
    m_ignore_time_loss.set_active(tournament.ignore_time_loss());
    for (Gtk::CheckButton* flag : {&m_random_order, &m_both_colors, &m_ignore_time_loss}) {
        m_event_page.attach(*flag, 1, m_row++);
    }
}

void TournamentDialog::add_row(const char* label, Gtk::Widget& field) {
    Gtk::Label& name = m_labels.emplace_back(label, Gtk::ALIGN_START);
    name.set_mnemonic_widget(field);
    field.set_hexpand(true);
    m_event_page.attach(name, 0, m_row);
    m_event_page.attach(field, 1, m_row++);
}

std::string TournamentDialog::entered_event() const {
    return std::string(text::trim_blanks(text::one_line(m_event.get_text().raw())));
}

/// False when the event in the entry can be used as it is.
bool TournamentDialog::propose_free_event() {
    const std::string taken = entered_event();
    const std::string free = m_original.free_event(taken);
    if (free == taken) return false;
    m_event.set_text(shown_text(free));
    m_event_note.set_text("“" + shown_text(taken, longest_cell) +
                          "” is another tournament, which stays as it is.");
    m_event_note.show();
    return true;
}

/// The answer isn't refused with a box: the name that is free is there already, and another "OK" takes it.
int TournamentDialog::run() {
    int answer = ModalDialog::run();
    while (answer == ok && propose_free_event()) {
        m_pages.set_current_page(0);
        m_event.grab_focus();
        answer = ModalDialog::run();
    }
    return answer;
}

TournamentData TournamentDialog::entered() {
    TournamentData data;
    data.rounds = text::WordReader(m_rounds.get_text().raw()).integer<std::int32_t>().value_or(0);
    data.event = entered_event();
    data.site = m_site.get_text().raw();
    data.opening_book = m_book;
    data.type = static_cast<TournamentType>(m_type.get_active_row_number());
    for (const auto& name : m_participants.chosen()) {
        data.add_participant({.name = name});
    }
    data.level = m_time_control.level();
    data.random_order = m_random_order.get_active();
    data.both_colors = m_both_colors.get_active();
    data.ignore_time_loss = m_ignore_time_loss.get_active();
    return data;
}

}  // namespace velmora
