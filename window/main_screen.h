#pragma once

#include <string>

#include <gtkmm/window.h>
#include <sigc++/connection.h>
#include <sigc++/trackable.h>

#include "window/menu/actions.h"
#include "window/session/game_desk.h"
#include "window/session/screen.h"

namespace velmora {

class AnalysisWindow;
class ChessBoard;
class Clocks;
class CommentEditor;
class EpdCommandsWindow;
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
    EpdCommandsWindow& epd;
};

/// The screen of the real window: hands what the logic says on to the widgets, and the desk's game to the
/// views.
class MainScreen : public Screen, public sigc::trackable {
public:
    MainScreen(GameDesk& desk, Views views) : m_desk(desk), m_views(views) {}

    /// The menu is built after the screen, since its entries need the rooms that need the screen.
    void attach(Actions& actions) { m_actions = &actions; }

    void show_position() override;
    void show_targets(int square) override;
    void show_game() override;
    void set_title(const std::string& title) override;
    void close() override;

    Mode mode() const override;
    void select_mode(Mode mode) override;
    void set_sensitive(const char* action, bool sensitive) override;

    void set_arrow(int from, int to, int color) override;
    void clear_arrows() override;

    void set_clock_level(const Level& level) override;
    void reset_clocks() override;
    void stop_clocks() override;
    void start_clock(Side side) override;
    void set_clock(Side side, int centiseconds) override;
    void mark_clock(Side side) override;

    void add_analysis(Side side, const std::string& line) override;
    void clear_analysis() override;

    std::string comment_text() const override;
    void show_comment(const std::string& comment) override;

private:
    void announce_last_move();
    bool refresh_game_text();

    GameDesk& m_desk;
    Views m_views;
    Actions* m_actions = nullptr;      // null until attach()
    sigc::connection m_game_text_due;  // waits for the loop to have nothing better to do
    std::string m_announced;           // the FEN of the position whose last move was said
};

}  // namespace velmora
