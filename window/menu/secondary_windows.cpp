#include "window/menu/secondary_windows.h"

#include <utility>

#include <gdkmm/monitor.h>

#include "dialogs/about_dialog.h"
#include "views/board/chess_board.h"
#include "views/board/data_directory.h"

namespace velmora {

namespace {

ScreenBox frame_of(const Glib::RefPtr<const Gdk::Window>& window) {
    Gdk::Rectangle frame;
    window->get_frame_extents(frame);
    return {frame.get_x(), frame.get_y(), frame.get_width(), frame.get_height()};
}

}  // namespace

SecondaryWindows::SecondaryWindows(Gtk::Window& main, ChessBoard& board, const std::array<Part, count>& parts,
                                   std::function<void()> refresh)
    : m_main(main), m_board(board), m_parts(parts), m_refresh(std::move(refresh)) {}

void SecondaryWindows::show(SecondaryWindow window, bool on) {
    const auto index = static_cast<std::size_t>(window);
    auto* const widget = m_parts[index].widget;
    if (on) {
        if (auto* const shown = dynamic_cast<Gtk::Window*>(widget)) {
            // Where the person puts it later, it stays.
            if (!m_placed[index]) place(*shown, static_cast<int>(index));
            m_placed[index] = true;
        }
        widget->show_all();
        m_refresh();
    } else {
        widget->hide();
        if (window == SecondaryWindow::fen && m_width > 0) m_main.resize(m_width, m_height);
    }
}

void SecondaryWindows::place(Gtk::Window& window, int index) {
    // Where the screen has no room below the others, open windows shall at least not hide each other's title.
    constexpr int step = 90;
    const auto main_frame = m_main.get_window();
    if (!main_frame) return;
    const auto monitor = main_frame->get_display()->get_monitor_at_window(main_frame);
    if (!monitor) return;
    Gdk::Rectangle area;
    monitor->get_workarea(area);
    const ScreenBox screen{area.get_x(), area.get_y(), area.get_width(), area.get_height()};
    const ScreenBox main = frame_of(main_frame);
    ScreenBox wanted{0, 0, 0, 0};
    window.get_default_size(wanted.width, wanted.height);
    const int title_height = main.height - m_main.get_height();
    wanted.y = top_below(open_windows(), main.y, wanted.height + title_height, screen, main.y + step * index);
    const ScreenBox placed = place_beside(main, wanted, screen);
    window.move(placed.x, placed.y);
}

/// The frames of the secondary windows that are shown.
std::vector<ScreenBox> SecondaryWindows::open_windows() const {
    std::vector<ScreenBox> open;
    for (const Part& part : m_parts) {
        const auto* const window = dynamic_cast<const Gtk::Window*>(part.widget);
        if (window && window->get_visible() && window->get_window()) {
            open.push_back(frame_of(window->get_window()));
        }
    }
    return open;
}

void SecondaryWindows::hide_all() {
    for (const Part& part : m_parts) part.widget->hide();
}

bool SecondaryWindows::is_shown(SecondaryWindow window) const {
    return m_parts[static_cast<std::size_t>(window)].widget->get_visible();
}

void SecondaryWindows::remember_size() {
    if (m_width == 0) m_main.get_size(m_width, m_height);
}

void SecondaryWindows::flip_board() {
    m_board.flip();
    m_refresh();
}

void SecondaryWindows::about() { show_about(m_main, image_path("velmora_100x50.svg")); }

void SecondaryWindows::on_closed(const std::function<void(const char* action)>& clear) {
    for (const Part& part : m_parts) {
        part.widget->signal_hide().connect([clear, action = part.action] { clear(action); });
    }
}

}  // namespace velmora
