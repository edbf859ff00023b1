#include "views/notice/notice_bar.h"

#include <gtkmm/container.h>
#include <gtkmm/dialog.h>

namespace velmora {

NoticeBar::NoticeBar() : m_accept(add_button("Accept", Gtk::RESPONSE_ACCEPT)) {
    set_message_type(Gtk::MESSAGE_INFO);
    set_show_close_button();
    m_label.set_xalign(0);
    m_label.set_ellipsize(Pango::ELLIPSIZE_END);
    m_label.show();
    dynamic_cast<Gtk::Container&>(*get_content_area()).add(m_label);
    m_accept->set_focus_on_click(false);
    set_no_show_all();
    signal_response().connect([this](int answer) {
        // The click is over when the bar hides: whoever is told may show another sentence.
        if (answer == Gtk::RESPONSE_ACCEPT) {
            m_accepted.emit();
        } else {
            m_closed.emit();
        }
    });
}

void NoticeBar::show_notice(const std::string& text, bool can_accept) {
    if (m_label.get_text() != text) {
        m_label.set_text(text);
        m_label.set_tooltip_text(text);
    }
    if (m_accept->get_visible() != can_accept) m_accept->set_visible(can_accept);
    if (get_visible() != !text.empty()) set_visible(!text.empty());
}

}  // namespace velmora
