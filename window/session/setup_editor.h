#pragma once

#include "base/stopwatch.h"
#include "chess/board/piece.h"
#include "chess/moves/position.h"
#include "window/session/dialogs.h"
#include "window/session/game_session.h"
#include "window/session/manager_link.h"

namespace velmora {

/// Edits the position in set-up mode: a drag moves a piece, a click removes one or opens the chooser.
///
/// The rules are kept out of it as far as they can be. What is refused is what would make a position that
/// can't be read back: a pawn on the first or last rank, a side without its king.
class SetupEditor {
public:
    /// @param click_timer  restarted when the chooser has closed
    SetupEditor(GameSession& session, Dialogs& dialogs, ManagerLink& manager, Stopwatch& click_timer)
        : m_session(session), m_dialogs(dialogs), m_manager(manager), m_click_timer(click_timer) {}

    /// One drag from `from` to `to`, or one click when both are the same square.
    void edit(Square from, Square to);

private:
    Piece edit(ChessPosition& board, Square from, Square to);
    Piece move_piece(ChessPosition& board, Square from, Square to);
    Piece place_chosen(ChessPosition& board, Square square);
    void take_over(ChessPosition& board, Piece touched);

    GameSession& m_session;
    Dialogs& m_dialogs;
    ManagerLink& m_manager;
    Stopwatch& m_click_timer;
};

}  // namespace velmora
