#include "window/menu/secondary_windows.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include <gdkmm/monitor.h>

namespace velmora {

namespace {

/// With the title and the borders that the window manager puts around it.
ScreenBox frame_of(const Glib::RefPtr<const Gdk::Window>& window) {
    Gdk::Rectangle frame;
    window->get_frame_extents(frame);
    return {frame.get_x(), frame.get_y(), frame.get_width(), frame.get_height()};
}

/// What a widget asks for.
int width_of(const Gtk::Widget& widget) {
    int least = 0, natural = 0;
    widget.get_preferred_width(least, natural);
    return natural;
}

}  // namespace

void SecondaryWindows::add(const char* action, Gtk::Widget& widget) {
    auto* const window = dynamic_cast<Gtk::Window*>(&widget);
    m_parts.push_back({.action = action, .widget = widget, .window = window});
    if (!window) return;
    window->signal_configure_event().connect_notify([this, window](GdkEventConfigure* /*event*/) {
        const auto part = std::ranges::find(m_parts, window, &Part::window);
        int x = 0, y = 0;
        window->get_position(x, y);
        part->position = {x, y};
    });
}

void SecondaryWindows::add(const char* action, std::unique_ptr<Gtk::Window> window) {
    add(action, *window);
    m_owned.push_back(std::move(window));
}

void SecondaryWindows::add_beside(const char* action, Gtk::Widget& widget) {
    m_parts.push_back({.action = action, .widget = widget, .window = nullptr, .beside = true});
}

void SecondaryWindows::show(std::string_view action, bool on) {
    const auto found = std::ranges::find(m_parts, action, &Part::action);
    if (found == m_parts.end()) throw std::logic_error("no window has the action " + std::string(action));
    if (!found->window) return set_strip(*found, on);
    if (on) {
        place(*found);
        found->widget.show_all();
        m_refresh();
    } else {
        found->widget.hide();
    }
}

void SecondaryWindows::set_strip(Part& part, bool on) {
    if (on == part.widget.get_visible()) return;
    const int asked = width_of(m_main);
    if (on) {
        part.widget.show_all();
        // By what else there is at the board's edge, too.
        if (part.beside) widen(width_of(m_main) - asked);
        m_refresh();
        return;
    }
    const int width = part.widget.get_allocated_width();
    part.widget.hide();
    if (part.beside) {
        widen(-width);
    } else if (m_width > 0) {
        m_main.resize(m_width + width_beside(), m_height);
    }
}

/// The board gives way where the screen is too small for both; the toolkit doesn't let a window become
/// smaller than what it holds.
void SecondaryWindows::widen(int pixels) {
    const auto window = m_main.get_window();
    if (!window) return;
    Gdk::Rectangle area;
    window->get_display()->get_monitor_at_window(window)->get_workarea(area);
    int width = 0, height = 0;
    m_main.get_size(width, height);
    m_main.resize(std::clamp(width + pixels, 1, std::max(1, area.get_width())), height);
}

int SecondaryWindows::width_beside() const {
    int width = 0;
    for (const Part& part : m_parts) {
        if (part.beside && part.widget.get_visible()) width += part.widget.get_allocated_width();
    }
    return width;
}

void SecondaryWindows::place(Part& part) {
    Gtk::Window& window = *part.window;
    if (part.position) return window.move(part.position->first, part.position->second);
    const auto main_frame = m_main.get_window();
    if (!main_frame) return;
    const auto monitor = main_frame->get_display()->get_monitor_at_window(main_frame);
    if (!monitor) return;
    Gdk::Rectangle area;
    monitor->get_workarea(area);
    const ScreenBox screen{area.get_x(), area.get_y(), area.get_width(), area.get_height()};
    const ScreenBox main = frame_of(main_frame);
    ScreenBox wanted;
    window.get_default_size(wanted.width, wanted.height);
    wanted.height += main.height - m_main.get_height();  // the frame's title
    const ScreenBox placed = free_place(main, open_windows(), wanted, screen);
    window.move(placed.x, placed.y);
}

/// The frames of the secondary windows that are shown.
std::vector<ScreenBox> SecondaryWindows::open_windows() const {
    std::vector<ScreenBox> open;
    for (Gtk::Window* window : windows()) {
        if (window->get_visible() && window->get_window()) open.push_back(frame_of(window->get_window()));
    }
    return open;
}

void SecondaryWindows::hide_all() {
    for (Part& part : m_parts) part.widget.hide();
}

std::vector<Gtk::Window*> SecondaryWindows::windows() const {
    std::vector<Gtk::Window*> found;
    for (const Part& part : m_parts) {
        if (part.window) found.push_back(part.window);
    }
    return found;
}

void SecondaryWindows::remember_size() {
    if (m_width == 0) m_main.get_size(m_width, m_height);
}

void SecondaryWindows::on_closed(const std::function<void(const char* action)>& clear) {
    for (Part& part : m_parts) {
        part.widget.signal_hide().connect([clear, action = part.action] { clear(action); });
    }
}

}  // namespace velmora
