#include "dialogs/move_entry.h"

#include "dialogs/shown_text.h"

namespace velmora {

MoveEntry::MoveEntry(const Gtk::Widget& board) : Gtk::Popover(board) {
    constexpr int margin = 8, spacing = 4;  // pixels
    m_entry.set_width_chars(8);
    m_entry.get_accessible()->set_name("Move");
    m_label.set_mnemonic_widget(m_entry);
    m_complaint.set_no_show_all();
    m_box.set_border_width(margin);
    m_box.set_spacing(spacing);
    m_line.pack_start(m_label, Gtk::PACK_SHRINK);
    m_line.pack_start(m_entry, true, true);
    m_box.pack_start(m_line, Gtk::PACK_SHRINK);
    m_box.pack_start(m_complaint, Gtk::PACK_SHRINK);
    m_box.show_all();
    add(m_box);
    set_position(Gtk::POS_TOP);
    m_entry.signal_activate().connect([this] {
        const std::string text = m_entry.get_text().raw();
        m_move_entered.emit(text);
    });
    m_entry.signal_changed().connect([this] { show_complaint(""); });
}

void MoveEntry::begin(gunichar character) {
    m_entry.set_text(Glib::ustring(1, character));
    popup();
    m_entry.grab_focus_without_selecting();
    m_entry.set_position(-1);
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
