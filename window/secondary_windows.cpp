#include "window/secondary_windows.h"

#include <utility>

#include <gdkmm/monitor.h>

#include "dialogs/about_dialog.h"
#include "views/chess_board.h"
#include "views/data_directory.h"
#include "window/window_placement.h"

namespace velmora {

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
    // Windows that are open together don't hide each other's title.
    constexpr int step = 90;
    const auto main_frame = m_main.get_window();
    if (!main_frame) return;
    Gdk::Rectangle frame;
    main_frame->get_frame_extents(frame);
    const auto monitor = main_frame->get_display()->get_monitor_at_window(main_frame);
    if (!monitor) return;
    Gdk::Rectangle area;
    monitor->get_workarea(area);
    ScreenBox wanted{0, frame.get_y() + step * index, 0, 0};
    window.get_default_size(wanted.width, wanted.height);
    const auto placed =
        place_beside({frame.get_x(), frame.get_y(), frame.get_width(), frame.get_height()}, wanted,
                     {area.get_x(), area.get_y(), area.get_width(), area.get_height()});
    window.move(placed.x, placed.y);
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

void SecondaryWindows::about() {
    show_about(m_main, data_directory() + "velmora.files/svg/velmora_100x50.svg");
}

void SecondaryWindows::on_closed(const std::function<void(const char* action)>& clear) {
    for (const Part& part : m_parts) {
        part.widget->signal_hide().connect([clear, action = part.action] { clear(action); });
    }
}

}  // namespace velmora
