#pragma once

#include <string>

#include <gtkmm/textview.h>
#include <gtkmm/window.h>

namespace velmora {

/// The small window for the comment at the current move.
///
/// What the record holds may not be fit for a text box. So box and record are kept apart: as long as nobody
/// types, the bytes that were set are the bytes that come back, and opening the window changes no game.
class CommentEditor : public Gtk::Window {
public:
    CommentEditor();

    /// Shows a comment. Bytes that are no UTF-8 show as "?".
    void set_text(const std::string& text);
    /// The text in the box. A comment that nobody has edited comes back byte by byte as it was set.
    std::string text() const;

    /// The user has left the box, or the window was hidden: what text() gives is to be kept.
    sigc::signal<void>& signal_applied() { return m_applied; }

protected:
    void on_show() override;
    void on_hide() override;

private:
    bool on_view_left(GdkEventFocus* event);

    sigc::signal<void> m_applied;
    Gtk::TextView m_view;
    Glib::RefPtr<Gtk::TextBuffer> m_buffer;
    std::string m_original;  // as given to set_text()
    std::string m_shown;     // as the box showed it then
};

}  // namespace velmora
