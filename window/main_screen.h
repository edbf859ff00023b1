#pragma once

#include <string>

#include <gtkmm/window.h>
#include <sigc++/connection.h>
#include <sigc++/trackable.h>

#include "window/menu/actions.h"
#include "window/session/game_session.h"
#include "window/session/screen.h"

namespace velmora {

class AnalysisWindow;
class ChessBoard;
class Clocks;
class CommentEditor;
class FenEntry;
class NavigationBar;
class PgnView;

/// The widgets that show the game; owned by the Interface.
struct Views {
    Gtk::Window& main;
    ChessBoard& board;
    Clocks& clocks;
    NavigationBar& navigation;
    FenEntry& fen_entry;
    AnalysisWindow& analysis;
    PgnView& pgn;
    CommentEditor& comment;
};

/// The screen of the real window: hands what the logic says on to the widgets, and the session's game to the
/// views.
///
/// Four narrow interfaces in one class, because the widgets behind them are one window, and what shows a
/// position concerns several of them.
///
/// The PGN text isn't shown at once but when the loop has nothing better to do: a held key or a fast match
/// changes it many times a second.
class MainScreen : public BoardView,
                   public ClockView,
                   public NotesView,
                   public WindowFrame,
                   public sigc::trackable {
public:
    MainScreen(GameSession& session, Views views) : m_session(session), m_views(views) {}

    /// The menu is built after the screen, since its entries need the rooms that need the screen.
    void attach(Actions& actions) { m_actions = &actions; }

    Screen all() { return {*this, *this, *this, *this}; }

    void show_position() override;
    void show_targets(Square square) override;
    void set_arrow(Square from, Square to, ArrowColor color) override;
    void clear_arrows() override;

    void reset_clocks(const Level& level) override;
    void stop_clocks() override;
    void start_clock(Side side) override;
    void mark_clock(Side side) override;
    BySide<ClockReading> read_clocks() const override;
    void restore_clocks(const BySide<ClockReading>& readings, std::optional<Side> running) override;

    void show_game() override;
    void show_comment(const std::string& comment) override;
    void add_analysis(Side side, const std::string& line) override;
    void clear_analysis() override;

    void set_title(const std::string& title) override;
    void close() override;
    Mode mode() const override;
    void select_mode(Mode mode) override;
    void set_sensitive(Mode mode, bool sensitive) override;
    void set_sensitive(MenuEntry entry, bool sensitive) override;

private:
    void announce_last_move();
    bool refresh_game_text();

    GameSession& m_session;
    Views m_views;
    Actions* m_actions = nullptr;      // null until attach()
    sigc::connection m_game_text_due;  // waits for the loop to have nothing better to do
    std::string m_announced;           // the move that was said last
};

}  // namespace velmora
