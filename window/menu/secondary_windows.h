#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <vector>

#include <gtkmm/window.h>

#include "window/menu/window_placement.h"

namespace velmora {

class ChessBoard;

/// What the View menu shows and hides.
enum class SecondaryWindow : std::size_t { analysis, pgn, comment, epd, fen };

/// Shows and hides what is not on the screen at the start, and keeps the menu's toggles true.
class SecondaryWindows {
public:
    struct Part {
        Gtk::Widget* widget;  ///< a window, or the FEN strip in the main window
        const char* action;   ///< its toggle action
    };
    static constexpr std::size_t count = 5;

    /// @param refresh  fills a part with the present game before it is shown
    SecondaryWindows(Gtk::Window& main, ChessBoard& board, const std::array<Part, count>& parts,
                     std::function<void()> refresh);

    void show(SecondaryWindow window, bool on);
    void hide_all();
    bool is_shown(SecondaryWindow window) const;

    /// Notes the main window's size as first shown, to which hiding the FEN strip returns.
    void remember_size();

    void flip_board();
    void about();

    /// Calls `clear(action)` whenever the person closes a window by its frame.
    void on_closed(const std::function<void(const char* action)>& clear);

private:
    void place(Gtk::Window& window, int index);
    std::vector<ScreenBox> open_windows() const;

    Gtk::Window& m_main;
    ChessBoard& m_board;
    const std::array<Part, count> m_parts;
    const std::function<void()> m_refresh;
    std::array<bool, count> m_placed{};
    int m_width = 0;
    int m_height = 0;
};

}  // namespace velmora
