#pragma once

#include <string>
#include <vector>

#include <gtkmm/frame.h>
#include <gtkmm/paned.h>
#include <gtkmm/textview.h>
#include <gtkmm/window.h>

#include "chess/board/side.h"

namespace velmora {

/// The window with what the engines write while they think, one pane a side.
///
/// An engine at low depths writes hundreds of lines in a moment. Each change of a text buffer moves its
/// marks and has the view laid out; so lines are collected and go in by one insertion, before the next
/// frame is drawn. While the window is hidden they only wait: the toolkit lays out a text that nobody sees,
/// too.
class AnalysisWindow : public Gtk::Window {
public:
    AnalysisWindow();

    /// Adds a text to a side's pane, see lengthen_pane(). All texts of one turn of the main loop reach the
    /// screen together. A pane keeps its last 10,000 lines or so.
    void add_line(Side side, const std::string& text);
    void add_white(const std::string& text) { add_line(Side::white, text); }
    void add_black(const std::string& text) { add_line(Side::black, text); }
    void clear();

protected:
    void on_show() override;

private:
    struct Pane {
        Gtk::Frame frame;
        Gtk::TextView view;
        Glib::RefPtr<Gtk::TextBuffer> buffer;
        Glib::RefPtr<Gtk::TextMark> end;
        std::vector<std::string> waiting;  // texts to be added
    };

    void set_up(Pane& pane, const char* label);
    static void add_scroll_bars(Pane& pane);
    void put_in_soon();
    bool add_waiting();
    static void lengthen(Pane& pane);

    Gtk::VPaned m_panes;
    BySide<Pane> m_sides;
    sigc::connection m_adding;
};

}  // namespace velmora
