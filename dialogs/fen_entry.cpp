#include "dialogs/fen_entry.h"

#include "dialogs/shown_text.h"

namespace velmora {

FenEntry::FenEntry() {
    m_entry.set_width_chars(50);
    m_label.set_mnemonic_widget(m_entry);
    for (Gtk::Widget* part : {static_cast<Gtk::Widget*>(&m_label), static_cast<Gtk::Widget*>(&m_entry),
                              static_cast<Gtk::Widget*>(&m_ok)}) {
        pack_start(*part, Gtk::PACK_SHRINK);
    }
    m_ok.signal_clicked().connect(sigc::mem_fun(*this, &FenEntry::hand_over));
    m_entry.signal_activate().connect(sigc::mem_fun(*this, &FenEntry::hand_over));
}

void FenEntry::set_text(std::string_view text) { m_entry.set_text(shown_text(text)); }

void FenEntry::hand_over() {
    // A copy: the listener may set the entry's text while it reads the one it was given.
    const std::string text = m_entry.get_text().raw();
    m_fen_entered.emit(text);
}

}  // namespace velmora
