#include "views/text/fen_entry.h"

#include <gtkmm/cssprovider.h>

#include "views/text/shown_text.h"

namespace velmora {

FenEntry::FenEntry() {
    constexpr int spacing = 4;  // pixels
    set_spacing(spacing);
    m_entry.set_width_chars(50);
    // A full position has some seventy characters; in a window of the usual size it shall be seen whole.
    const auto style = Gtk::CssProvider::create();
    style->load_from_data("entry { font-size: 82%; }");
    m_entry.get_style_context()->add_provider(style, GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
    m_label.set_mnemonic_widget(m_entry);
    pack_start(m_label, Gtk::PACK_SHRINK);
    pack_start(m_entry, Gtk::PACK_EXPAND_WIDGET);
    pack_start(m_ok, Gtk::PACK_SHRINK);
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
