#pragma once

#include "base/stopwatch.h"
#include "chess/board/piece.h"
#include "chess/moves/position.h"
#include "window/session/comment_keeper.h"
#include "window/session/dialogs.h"
#include "window/session/game_desk.h"
#include "window/session/manager_link.h"
#include "window/session/screen.h"

namespace velmora {

/// Edits the position in set-up mode: a drag moves a piece, a click removes one or opens the chooser.
class SetupEditor {
public:
    /// @param click_timer  restarted when the chooser has closed
    SetupEditor(GameDesk& desk, Screen& screen, Dialogs& dialogs, CommentKeeper& comments,
                ManagerLink& manager, Stopwatch& click_timer);

    /// One drag from `from` to `to`, or one click when both are the same square.
    void edit(int from, int to);

private:
    Piece move_piece(ChessPosition& board, int from, int to);
    Piece place_chosen(ChessPosition& board, int square);
    void take_over(ChessPosition& board, Piece touched);

    GameDesk& m_desk;
    Screen& m_screen;
    Dialogs& m_dialogs;
    CommentKeeper& m_comments;
    ManagerLink& m_manager;
    Stopwatch& m_click_timer;
};

}  // namespace velmora
