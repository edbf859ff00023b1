#include "dialogs/files/chooser_list.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include <glibmm/main.h>

#include "dialogs/parts/modal_dialog.h"

namespace velmora {
namespace {

using namespace std::chrono_literals;

/// "1 234 567", with narrow spaces at which no line breaks.
std::string grouped(std::size_t number) {
    std::string digits = std::to_string(number);
    for (std::size_t end = digits.size(); end > 3;) {
        end -= 3;
        digits.insert(end, "\u202F");
    }
    return digits;
}

}  // namespace

ChooserList::ChooserList(const NumberedColumns& columns, const std::vector<NumberedList::TextColumn>& texts,
                         std::string noun)
    : Gtk::Box(Gtk::ORIENTATION_VERTICAL, ModalDialog::row_spacing),
      m_noun(std::move(noun)),
      m_list(columns, texts) {
    m_count.set_xalign(0);
    m_progress_bar.set_valign(Gtk::ALIGN_CENTER);
    m_status.pack_start(m_count, Gtk::PACK_EXPAND_WIDGET);
    m_status.pack_start(m_progress_bar, Gtk::PACK_SHRINK);
    pack_start(m_list, Gtk::PACK_EXPAND_WIDGET);
    pack_start(m_status, Gtk::PACK_SHRINK);
}

ChooserList::~ChooserList() { stop(); }

std::optional<ChooserList::Choice> ChooserList::choose(Gtk::Window& parent, const Glib::ustring& title,
                                                       EntryReader::OpenSource open_source) {
    ModalDialog dialog(title, parent);
    dialog.set_ordinary_size(760, 520);
    dialog.body().pack_start(*this, true, true);
    dialog.add_answer("CANCEL", Gtk::RESPONSE_CANCEL);
    dialog.add_answer("OK", Gtk::RESPONSE_OK);
    dialog.set_default_response(Gtk::RESPONSE_OK);
    sigc::connection answered =
        m_list.signal_answered().connect([&dialog] { dialog.response(Gtk::RESPONSE_OK); });

    start(std::move(open_source));
    const int response = dialog.run();
    stop();
    on_left();
    answered.disconnect();
    dialog.body().remove(*this);

    const auto row = m_list.selected();
    if (response != Gtk::RESPONSE_OK || !row) return std::nullopt;
    return Choice{static_cast<int>(*row + 1), std::move(m_entries.at(*row))};
}

void ChooserList::start(EntryReader::OpenSource open_source) {
    // A small file, and a screenful of a large one, are there before the dialog is.
    constexpr std::size_t screenful = 100;
    constexpr auto patience = 60ms;
    m_list.clear();
    m_entries.clear();
    m_reader = std::make_unique<EntryReader>(std::move(open_source));
    m_reading = true;
    m_progress_shown = {};
    m_reader->wait_for(screenful, patience);
    if (!fill()) return;
    m_list.start_bulk();
    // Behind the redraws and the user's events in rank: filling never delays those.
    constexpr unsigned interval_ms = 2;
    m_timer = Glib::signal_timeout().connect(sigc::mem_fun(*this, &ChooserList::fill), interval_ms,
                                             Glib::PRIORITY_DEFAULT_IDLE);
}

void ChooserList::stop() {
    m_timer.disconnect();
    m_reader.reset();
}

/// Puts what has been read into the list, for a moment; false when nothing is left to do.
/// Ends by the clock and not by a count: rows cost more on a slow machine, and the window must answer
/// there, too.
bool ChooserList::fill() {
    constexpr auto time_slice = 20ms;
    constexpr std::size_t largest_bulk = 200'000;  // rows; those behind are seen to come
    const auto end = std::chrono::steady_clock::now() + time_slice;
    const bool was_empty = m_list.size() == 0;
    if (m_reading) m_reading = m_reader->take(m_entries);
    while (m_list.size() < m_entries.size() && std::chrono::steady_clock::now() < end) {
        auto& cells = m_entries[m_list.size()].cells;
        m_list.append(cells);
        NumberedList::Cells().swap(cells);  // the list has its own copy now
    }
    const bool complete = !m_reading && m_list.size() == m_entries.size();
    if (complete || was_empty || m_list.size() >= largest_bulk) m_list.finish_bulk();
    if (was_empty) m_list.select_first();
    show_progress(complete);
    if (complete) on_listed();
    return !complete;
}

void ChooserList::add_entry(FileEntry entry) {
    const bool was_empty = m_entries.empty();
    m_list.append(entry.cells);
    NumberedList::Cells().swap(entry.cells);
    m_entries.push_back(std::move(entry));
    if (was_empty) m_list.select_first();
    show_progress(true);
}

void ChooserList::show_progress(bool complete) {
    constexpr auto pause = 80ms;  // a new text makes the whole dialog compute its layout
    const auto now = std::chrono::steady_clock::now();
    if (!complete && now - m_progress_shown < pause) return;
    m_progress_shown = now;
    const std::string plural = m_list.size() == 1 ? "" : "s";
    m_count.set_text((complete && m_entries.empty() ? "no" : grouped(m_list.size())) + " " + m_noun + plural);
    const double shown =
        m_entries.empty() ? 1.0 : static_cast<double>(m_list.size()) / static_cast<double>(m_entries.size());
    m_progress_bar.set_fraction(std::clamp(m_reader->progress() * shown, 0.0, 1.0));
    m_progress_bar.set_opacity(complete ? 0 : 1);  // it keeps its place, so that nothing jumps
}

}  // namespace velmora
