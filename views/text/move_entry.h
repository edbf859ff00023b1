#pragma once

#include <string>

#include <gtkmm/box.h>
#include <gtkmm/entry.h>
#include <gtkmm/label.h>
#include <gtkmm/popover.h>

namespace velmora {

/// The small field that opens when somebody begins to type a move. It lies over the bar below the board,
/// where it covers neither squares nor clocks. Enter hands the text over, Escape and a click elsewhere leave
/// it.
///
/// A popover takes no room from the board and needs no place in the tab order while it isn't used.
class MoveEntry : public Gtk::Popover {
public:
    explicit MoveEntry(Gtk::Widget& bar);

    /// Opens the field with the first character of the move.
    void begin(gunichar character);
    /// Keeps the field open and says what is wrong with the move.
    /// The text stays and is selected, so that the next character replaces it and Home or End corrects it.
    void refuse(const std::string& reason);

    sigc::signal<void, const std::string&>& signal_move_entered() { return m_move_entered; }

private:
    void show_complaint(const std::string& reason);
    void lie_over_bar();

    Gtk::Widget& m_bar;
    Gtk::Box m_line{Gtk::ORIENTATION_HORIZONTAL};
    Gtk::Label m_label{"Move: "};
    Gtk::Entry m_entry;
    Gtk::Label m_complaint;
    sigc::signal<void, const std::string&> m_move_entered;
};

}  // namespace velmora
