#pragma once

#include <string>

#include <gtkmm/box.h>
#include <gtkmm/button.h>
#include <gtkmm/label.h>

namespace velmora {

/// Three lines that say what is going on, what was played last and which pieces are gone, at times a button
/// that offers what can be done about it. Texts that are too long are cut: they never widen the window.
class StateLine : public Gtk::Box {
public:
    StateLine();

    void set_activity(const std::string& text);
    void set_last_move(const std::string& text);
    /// @param words  the same for who can't see the figurines of `text`
    void set_captured(const std::string& text, const std::string& words);
    /// Shows a button with this label; an empty one takes it away.
    void offer(const std::string& label);

    sigc::signal<void>& signal_accepted() { return m_accepted; }

private:
    Gtk::Box m_texts;
    Gtk::Label m_activity;
    Gtk::Label m_last_move;
    Gtk::Label m_captured;
    Gtk::Button m_offer;
    sigc::signal<void> m_accepted;
};

}  // namespace velmora
