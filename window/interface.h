#pragma once

#include <cstdint>
#include <string>
#include <thread>
#include <vector>

#include <gtkmm/box.h>
#include <gtkmm/paned.h>
#include <gtkmm/window.h>

#include "channel/command_sink.h"
#include "channel/line_queue.h"
#include "manager/manager.h"
#include "views/board/board_with_clocks.h"
#include "views/board/chess_board.h"
#include "views/clocks/clocks.h"
#include "views/notice/notice_bar.h"
#include "views/text/analysis_window.h"
#include "views/text/comment_editor.h"
#include "views/text/fen_entry.h"
#include "views/text/move_entry.h"
#include "views/text/pgn_view.h"
#include "window/flows/clipboard_flows.h"
#include "window/flows/engine_flows.h"
#include "window/flows/file_flows.h"
#include "window/flows/tournament_flows.h"
#include "window/main_clipboard.h"
#include "window/main_dialogs.h"
#include "window/main_screen.h"
#include "window/menu/actions.h"
#include "window/menu/rooms.h"
#include "window/menu/secondary_windows.h"
#include "window/navigation_bar.h"
#include "window/navigation_keys.h"
#include "window/panel/analysis_panel.h"
#include "window/panel/review_panel.h"
#include "window/panel/standings_panel.h"
#include "window/review/review_room.h"
#include "window/session/activity.h"
#include "window/session/game_presenter.h"
#include "window/session/game_session.h"
#include "window/session/manager_link.h"
#include "window/session/message_dispatcher.h"
#include "window/session/mode_controller.h"
#include "window/session/navigation.h"
#include "window/session/search_display.h"
#include "window/session/seated_engine.h"
#include "window/session/user_moves.h"
#include "window/standings/standings_room.h"
#include "window/table/game_keeper.h"
#include "window/table/premove.h"
#include "window/table/table_room.h"

namespace velmora {

/// The main window: owns the views, the rooms that work on them, and the referee with its thread.
///
/// Everything here runs on the toolkit's main thread but put_command() and acknowledge(), over which the
/// referee's thread speaks. Closing is a round trip: "quit" to the referee, "quit" back, and only then does
/// the window go.
///
/// It owns and connects, and does nothing else: what happens when something is clicked or said stands in
/// the rooms, each of which has what it needs by reference. The members' order is the order in which they
/// are made, and each refers only to what stands above it; the thread comes last, when everything that a
/// line may touch is there.
class Interface : public Gtk::Window, public CommandSink {
public:
    /// @param program_path  argv[0], handed on to the referee
    /// @param board_size    side length of the board in pixels; the board rounds it
    Interface(std::string program_path, int board_size);
    ~Interface() override;

    /// Puts a command on the referee's queue.
    void send_to_manager(const std::string& command) { m_link.send_text(command); }
    /// Takes a line from the referee; the next tick carries it out.
    void put_command(const std::string& line) override;
    void acknowledge(std::uint64_t taken) override { m_taken = taken; }

    /// Carries out all lines that wait, with the queue locked: a message box holds up the referee until it is
    /// answered. A line that fails is reported and the next one is taken.
    /// The lock is held on purpose: without it the referee would play on behind a box that tells of an
    /// engine's death, and the person would answer to a game that has long changed.
    void process_manager_messages();
    /// Shows the position on the board and in the FEN entry.
    void refresh_board() { m_session.tell({Change::position}); }
    /// Shows a message in which underscores stand for blanks.
    void tell_user(const std::string& headline, const std::string& details);
    std::string choose_file(FileKind kind) { return m_dialogs.choose_file(kind); }
    /// Opens a game, position or book file by the flow of its kind; of several, the first.
    void open_files(const std::vector<std::string>& paths) { m_files.open(paths); }

    Actions& actions() { return m_actions; }
    const GameSession& session() const { return m_session; }
    const SeatedEngine& engine() const { return m_engine; }

protected:
    bool on_delete_event(GdkEventAny* event) override;
    bool on_key_press_event(GdkEventKey* event) override;
    void on_drag_data_received(const Glib::RefPtr<Gdk::DragContext>& context, int x, int y,
                               const Gtk::SelectionData& data, guint info, guint time) override;

private:
    /// A timer and not a wake-up for each line: the lines of one move come together, and fifty milliseconds
    /// are less than one notices.
    bool on_timeout();
    void open_dropped(const std::vector<Glib::ustring>& uris);
    void lay_out();
    void add_windows();
    void connect_views();

    // The lines from the referee: there before its thread starts, gone after it has ended.
    LineQueue m_queue;          // each behind the number of commands that the referee had taken, and a blank
    std::uint64_t m_taken = 0;  // the referee's thread only
    unsigned m_ticks = 0;

    Gtk::Box m_box;
    NoticeBar m_notice_bar;
    Gtk::Paned m_board_and_panel;
    ChessBoard m_board;
    Clocks m_clocks;
    EvaluationBar m_evaluation_bar;
    BoardWithClocks m_board_with_clocks;
    NavigationBar m_navigation_bar;
    FenEntry m_fen_entry;
    MoveEntry m_move_entry;
    AnalysisWindow m_analysis;
    PgnView m_pgn;
    CommentEditor m_comment;
    StandingsWindow m_standings_window;

    GameSession m_session;
    Manager m_manager;
    ManagerLink m_link;

    // The rooms, each knowing only those above it.
    MainScreen m_screen;
    MainDialogs m_dialogs;
    MainClipboard m_clipboard;
    GamePresenter m_presenter;
    SeatedEngine m_engine;
    MessageDispatcher m_dispatcher;
    ModeController m_modes;
    UserMoves m_user_moves;
    Navigation m_navigation;
    NavigationKeys m_navigation_keys;
    FileFlows m_files;
    EngineFlows m_engines;
    TournamentFlows m_tournaments;
    SearchDisplay m_search;
    Activity m_activity;
    ReviewRoom m_review;
    TableRoom m_table;
    GameKeeper m_keeper;
    Premove m_premove;
    ClipboardFlows m_clipboard_flows;
    StandingsRoom m_standings;
    AnalysisPanel m_panel;
    ReviewPanel m_review_panel;
    StandingsPanel m_standings_panel;
    SecondaryWindows m_windows;
    Rooms m_rooms;
    Actions m_actions;

    std::thread m_manager_thread;  // runs m_manager from the constructor's body to the destructor
};

}  // namespace velmora
