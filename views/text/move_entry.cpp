#include "views/text/move_entry.h"

#include <algorithm>

#include "views/text/shown_text.h"

namespace velmora {

MoveEntry::MoveEntry(Gtk::Widget& bar) : Gtk::Popover(bar), m_bar(bar) {
    constexpr int margin = 4, spacing = 8;  // pixels
    m_entry.set_width_chars(8);
    m_entry.get_accessible()->set_name("Move");
    m_label.set_mnemonic_widget(m_entry);
    m_complaint.set_no_show_all();
    m_complaint.set_ellipsize(Pango::ELLIPSIZE_MIDDLE);
    m_complaint.set_max_width_chars(26);  // the narrowest window has room for it
    m_complaint.set_margin_start(spacing);
    m_line.set_border_width(margin);
    m_line.pack_start(m_label, Gtk::PACK_SHRINK);
    m_line.pack_start(m_entry, true, true);
    m_line.pack_start(m_complaint, Gtk::PACK_SHRINK);
    m_line.show_all();
    add(m_line);
    set_position(Gtk::POS_BOTTOM);
    m_entry.signal_activate().connect([this] {
        const std::string text = m_entry.get_text().raw();
        m_move_entered.emit(text);
    });
    m_entry.signal_changed().connect([this] { show_complaint(""); });
}

void MoveEntry::begin(gunichar character) {
    m_entry.set_text(Glib::ustring(1, character));
    popup();
    lie_over_bar();
    m_entry.grab_focus_without_selecting();
    m_entry.set_position(-1);
}

/// Points at a place so far above the bar that the field ends with the window: beyond it, it would be cut.
void MoveEntry::lie_over_bar() {
    Gtk::Widget& window = *m_bar.get_toplevel();
    int left = 0, top = 0, least_height = 0, height = 0;
    m_bar.translate_coordinates(window, 0, 0, left, top);
    get_preferred_height(least_height, height);
    const int room = window.get_allocated_height() - top;
    set_pointing_to(Gdk::Rectangle(m_bar.get_allocated_width() / 2, std::min(0, room - height) - 1, 1, 1));
}

void MoveEntry::refuse(const std::string& reason) {
    show_complaint(reason);
    m_entry.select_region(0, -1);
}

void MoveEntry::show_complaint(const std::string& reason) {
    m_complaint.set_text(shown_text(reason));
    m_complaint.set_visible(!reason.empty());
    // A screen reader is at the entry.
    m_entry.get_accessible()->set_description(shown_text(reason));
}

}  // namespace velmora
