#pragma once

#include <string>

#include <gtkmm/button.h>
#include <gtkmm/infobar.h>
#include <gtkmm/label.h>

namespace velmora {

/// A bar with a sentence, a button to accept what it offers, and one to close it.
///
/// It comes and goes without asking for the keyboard; its buttons are reached with Tab as all others.
class NoticeBar : public Gtk::InfoBar {
public:
    NoticeBar();

    /// Shows the sentence; an empty one hides the bar.
    void show_notice(const std::string& text, bool can_accept);

    sigc::signal<void>& signal_accepted() { return m_accepted; }
    sigc::signal<void>& signal_closed() { return m_closed; }

private:
    Gtk::Label m_label;
    Gtk::Button* const m_accept;  // owned by the bar
    sigc::signal<void> m_accepted;
    sigc::signal<void> m_closed;
};

}  // namespace velmora
