#pragma once

#include <gdkmm/rectangle.h>
#include <glibmm/ustring.h>
#include <gtkmm/box.h>
#include <gtkmm/dialog.h>
#include <gtkmm/window.h>

namespace velmora {

/// The frame that all dialogs share: modal, above its parent window, the content in a box with a margin.
/// Enter gives the default answer, Escape leaves the dialog without one.
///
/// Margins and answers are kept here, so that a dialog's own class says what it asks and nothing else. On a
/// small screen, or with a large font, a dialog grows no further than the screen: its buttons must stay
/// within reach.
class ModalDialog : public Gtk::Dialog {
public:
    /// Pixels between the dialog's edge, its parts, and neighbouring fields.
    static constexpr int margin = 12;
    static constexpr int row_spacing = 6;
    static constexpr int column_spacing = 12;

    ModalDialog(const Glib::ustring& title, Gtk::Window& parent);

    /// Where the content goes, from top to bottom.
    Gtk::Box& body() { return m_body; }

    /// The default size in pixels with a font of ordinary size; a larger font makes it larger, up to the
    /// screen.
    void set_ordinary_size(int width, int height);

    /// Adds a sentence below the content so far. It takes the dialog's width and doesn't make it wider.
    void add_note(const Glib::ustring& sentence);

    /// Adds a button. The label stands as it is: underscores are no mnemonics.
    Gtk::Button& add_answer(const Glib::ustring& label, int response);

    /// Shows everything and waits for the answer: a button's response, or a negative number when the dialog
    /// was left in another way.
    int run();

private:
    Gdk::Rectangle room_on_screen();
    /// A dialog without a default size is as large as its content, as far as the screen has room for it.
    void stay_on_screen();

    Gtk::Box m_body{Gtk::ORIENTATION_VERTICAL, margin};
};

}  // namespace velmora
