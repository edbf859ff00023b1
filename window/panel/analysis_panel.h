#pragma once

#include <functional>

#include "views/board/chess_board.h"
#include "views/lines/engine_lines_view.h"
#include "views/panel/side_panel.h"
#include "window/session/game_session.h"
#include "window/session/mode.h"
#include "window/session/navigation.h"
#include "window/session/search_display.h"
#include "window/session/window_frame.h"

namespace velmora {

/// The side panel with all that it shows: what the engines say of the game, and the best moves on the board.
///
/// The sections are views that know nothing of one another; here they get what they show, and what is pressed
/// in them becomes an operation of the session. Whatever comes in floods is shown at refresh(), a few times a
/// second and only while somebody can see it.
class AnalysisPanel {
public:
    /// @param open  brings the panel onto the screen
    AnalysisPanel(GameSession& session, const WindowFrame& frame, Navigation& navigation,
                  SearchDisplay& search, ChessBoard& board, std::function<void()> open);
    AnalysisPanel(const AnalysisPanel&) = delete;  // the session knows where it is
    AnalysisPanel& operator=(const AnalysisPanel&) = delete;

    Gtk::Widget& widget() { return m_panel; }

    /// Brings sections and arrows up to date.
    void refresh();

    /// Whether the best moves are shown as arrows while an engine analyses.
    void show_best_moves(bool on);

    /// The person has closed the panel: it opens by itself no more.
    void keep_closed() { m_kept_closed = true; }

private:
    void open_where_it_helps();
    void show_arrows();
    void play_line(const LineMovePlace& place);

    GameSession& m_session;
    const WindowFrame& m_frame;
    Navigation& m_navigation;
    SearchDisplay& m_search;
    ChessBoard& m_board;
    const std::function<void()> m_open;

    EngineLinesView m_lines;
    SidePanel m_panel;
    PanelSection& m_lines_section;

    bool m_arrows = true;
    bool m_kept_closed = false;
    bool m_loaded = false;  // a record with moves has come since the last refresh()
    Mode m_mode = Mode::human_human;
};

}  // namespace velmora
