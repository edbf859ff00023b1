#pragma once

#include <cstdint>
#include <string>

#include <gtkmm/textview.h>
#include <gtkmm/window.h>

namespace velmora {

/// The window that shows the game as PGN text, with the current move marked, and lets the user jump to a move
/// by a click on it.
///
/// The view knows text and offsets, not moves: which move an offset belongs to is known by the record,
/// which wrote the text.
class PgnView : public Gtk::Window {
public:
    PgnView();

    /// Replaces the contents. Bytes that are no UTF-8 show as "?".
    void set_text(const std::string& text);

    /// Marks a range as the current move and brings it into sight. Works only when 1 <= begin <= end;
    /// otherwise the earlier mark stays. Offsets are counted in characters up to the end of the text,
    /// although the callers count bytes: behind letters outside ASCII the mark stands too far to the right.
    void highlight(std::int64_t begin, std::int64_t end);

    /// Carries the offset in bytes of the last character of the word that was clicked.
    sigc::signal<void, std::int64_t>& signal_clicked() { return m_clicked; }

protected:
    void on_show() override;

private:
    bool on_view_pressed(GdkEventButton* event);

    sigc::signal<void, std::int64_t> m_clicked;
    Gtk::TextView m_view;
    Glib::RefPtr<Gtk::TextBuffer> m_buffer;
    Glib::RefPtr<Gtk::TextTag> m_tag;
    Glib::RefPtr<Gtk::TextMark> m_current;
    std::string m_text;  // what the buffer holds
};

}  // namespace velmora
