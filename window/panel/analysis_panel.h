#pragma once

#include <functional>

#include "analysis/game_evaluations.h"
#include "views/board/chess_board.h"
#include "views/evaluation/evaluation_bar.h"
#include "views/evaluation/evaluation_graph.h"
#include "views/lines/engine_lines_view.h"
#include "views/moves/moves_view.h"
#include "views/panel/side_panel.h"
#include "views/panel/state_line.h"
#include "window/review/review_room.h"
#include "window/session/activity.h"
#include "window/session/game_session.h"
#include "window/session/mode.h"
#include "window/session/navigation.h"
#include "window/session/record_editor.h"
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
    /// @param open          brings the panel onto the screen
    /// @param edit_comment  brings the box of the comment onto the screen
    AnalysisPanel(GameSession& session, const WindowFrame& frame, Navigation& navigation,
                  SearchDisplay& search, const Activity& activity, ReviewRoom& review, ChessBoard& board,
                  EvaluationBar& bar, std::function<void()> open, std::function<void()> edit_comment);
    AnalysisPanel(const AnalysisPanel&) = delete;  // the session knows where it is
    AnalysisPanel& operator=(const AnalysisPanel&) = delete;

    SidePanel& widget() { return m_panel; }

    /// Brings sections and arrows up to date.
    void refresh();

    /// Whether the best moves are shown as arrows while an engine analyses.
    void show_best_moves(bool on);

    /// The person has closed the panel: it opens by itself no more.
    void keep_closed() { m_kept_closed = true; }

private:
    void open_where_it_helps();
    void show_activity();
    void show_evaluation();
    void show_moves();
    void show_graph();
    void carry_out(const MoveRequest& request);
    void go_to(std::int32_t node);
    void show_arrows();
    void play_line(const LineMovePlace& place);

    GameSession& m_session;
    const WindowFrame& m_frame;
    Navigation& m_navigation;
    SearchDisplay& m_search;
    const Activity& m_activity;
    ReviewRoom& m_review;
    ChessBoard& m_board;
    EvaluationBar& m_bar;
    const std::function<void()> m_open;
    const std::function<void()> m_edit_comment;

    RecordEditor m_editor;
    GameEvaluations m_evaluations;
    StateLine m_state_line;
    EngineLinesView m_lines;
    MovesView m_moves;
    EvaluationGraph m_graph;
    SidePanel m_panel;
    PanelSection& m_lines_section;
    PanelSection& m_moves_section;
    PanelSection& m_graph_section;

    bool m_arrows = true;
    bool m_kept_closed = false;
    bool m_record_changed = true;
    bool m_captured_changed = true;
    bool m_loaded = false;  // a record with moves has come since the last refresh()
    Mode m_mode = Mode::human_human;
};

}  // namespace velmora
