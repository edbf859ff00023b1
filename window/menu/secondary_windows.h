#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
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
    /// @param refresh  fills a part with the present game before it is shown
    SecondaryWindows(Gtk::Window& main, std::function<void()> refresh)
        : m_main(main), m_refresh(std::move(refresh)) {}

    /// Takes in a window or a strip of the main window under the name of its toggle action.
    void add(const char* action, Gtk::Widget& widget);
    /// Takes in what stands beside the board in the main window: the window grows by its width when it is
    /// shown, as far as the screen allows, and shrinks by it when it is hidden.
    void add_beside(const char* action, Gtk::Widget& widget);
    /// The same for a window of which nobody else need know, since it shows by itself what it is told.
    void add(const char* action, std::unique_ptr<Gtk::Window> window);

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
    struct Part {
        const char* action;
        Gtk::Widget& widget;
        Gtk::Window* window;  ///< the widget, null for a strip
        bool beside = false;  ///< a strip that stands beside the board and not below it
        std::optional<std::pair<int, int>> position = {};  ///< of the window as it was last seen
    };

    void set_strip(Part& part, bool on);
    void widen(int pixels);
    int width_beside() const;

    void place(Part& part);
    std::vector<ScreenBox> open_windows() const;

    Gtk::Window& m_main;
    std::vector<Part> m_parts;
    std::vector<std::unique_ptr<Gtk::Window>> m_owned;  // of the parts' widgets
    const std::function<void()> m_refresh;
    int m_width = 0;
    int m_height = 0;
};

}  // namespace velmora
