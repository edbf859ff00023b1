#pragma once

#include <optional>
#include <string>

#include "base/stopwatch.h"
#include "window/session/comment_keeper.h"
#include "window/session/dialogs.h"
#include "window/session/game_desk.h"
#include "window/session/manager_link.h"
#include "window/session/screen.h"
#include "window/session/setup_editor.h"

namespace velmora {

/// Turns what the person does on the board into moves: drags, and clicks on a piece and on its destination.
class UserMoves {
public:
    /// Seconds after the start, and after the piece chooser closed, in which the board takes no click: the
    /// click that closed a dialog is none on the board.
    static constexpr double default_click_delay_s = 0.5;

    UserMoves(GameDesk& desk, Screen& screen, Dialogs& dialogs, CommentKeeper& comments, ManagerLink& manager,
              double click_delay_s = default_click_delay_s);

    /// The board reports a drag from `from` to `to`, or a click when both are the same square.
    void on_board(int from, int to);

    /// A move has been typed. Gives what is wrong with it; empty when it has been played.
    std::string on_typed(const std::string& text);

    /// A piece has been picked up: its targets are shown until it is dropped.
    void on_piece_picked(std::optional<int> square);

private:
    void on_click(int square);
    void play(int from, int to);
    void make(const Move& move);
    bool may_move() const;
    bool is_own_piece(int square) const;
    PieceKind choose_promotion(int from, int to);
    void select(std::optional<int> square);

    GameDesk& m_desk;
    Screen& m_screen;
    Dialogs& m_dialogs;
    CommentKeeper& m_comments;
    ManagerLink& m_manager;
    SetupEditor m_setup;
    Stopwatch m_click_timer;  // runs since the start or since the piece chooser closed
    const double m_click_delay_s;
};

}  // namespace velmora
