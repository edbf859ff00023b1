#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include <gtkmm/window.h>

#include "window/menu/window_placement.h"

namespace velmora {

/// Shows and hides what is not on the screen at the start, and keeps the menu's toggles true.
///
/// A part is a window beside the main one or a strip in it, and is known by the name of its toggle action
/// alone: whoever adds one names it here and in the menu's table.
///
/// The windows are made with the program and hidden, so that what comes from an engine has a place from the
/// start; what is dear in them is put in when they are first shown.
class SecondaryWindows {
public:
    struct Part {
        const char* action;   ///< the name of its toggle action
        Gtk::Widget& widget;  ///< a window, or a strip in the main window
    };

    /// Makes windows of the main window out of the parts that are windows.
    /// @param refresh  fills a part with the present game before it is shown
    SecondaryWindows(Gtk::Window& main, const std::vector<Part>& parts, std::function<void()> refresh);

    /// Shows or hides a part; a window is placed beside the main one at its first show, and stays where the
    /// person has put it from then on.
    void show(std::string_view action, bool on);
    void hide_all();

    /// The parts that are windows of their own.
    std::vector<Gtk::Window*> windows() const;

    /// Notes the main window's size as first shown, to which hiding a strip returns.
    void remember_size();

    /// Calls `clear(action)` whenever the person closes a window by its frame.
    void on_closed(const std::function<void(const char* action)>& clear);

private:
    /// A part and what is known of it; `window` is null for a strip.
    struct Known {
        Part part;
        Gtk::Window* window;
        bool placed = false;
    };

    void place(Gtk::Window& window, int index);
    std::vector<ScreenBox> open_windows() const;

    Gtk::Window& m_main;
    std::vector<Known> m_parts;
    const std::function<void()> m_refresh;
    int m_width = 0;
    int m_height = 0;
};

}  // namespace velmora
