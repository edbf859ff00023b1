#pragma once

#include <string>
#include <string_view>

#include <gtkmm/box.h>
#include <gtkmm/button.h>
#include <gtkmm/entry.h>
#include <gtkmm/label.h>

namespace velmora {

/// A strip with an entry in which the user types a FEN. "OK" or the Enter key hands the text over as it
/// stands, empty or not; whether it is a position is for the listener to find out.
///
/// Nothing happens while one types: half a FEN is no position, and the board would flicker through
/// nonsense.
class FenEntry : public Gtk::Box {
public:
    FenEntry();

    void set_text(std::string_view text);

    sigc::signal<void, const std::string&>& signal_fen_entered() { return m_fen_entered; }

private:
    void hand_over();

    Gtk::Label m_label{"FEN "};
    Gtk::Entry m_entry;
    Gtk::Button m_ok{"OK"};
    sigc::signal<void, const std::string&> m_fen_entered;
};

}  // namespace velmora
