#pragma once

#include <cstddef>

#include "window/session/board_view.h"
#include "window/session/dialogs.h"
#include "window/session/game_session.h"
#include "window/session/mode_controller.h"
#include "window/session/window_frame.h"

namespace velmora {

/// Steps through the record: the four buttons under the board and clicks into the PGN text.
///
/// Looking at the game leaves a game against an engine: the person is no longer at the position to be
/// played, and the engine must not move there. Analysis and drill follow the board instead.
class Navigation {
public:
    Navigation(GameSession& session, BoardView& board, WindowFrame& frame, Dialogs& dialogs,
               ModeController& modes)
        : m_session(session), m_board(board), m_frame(frame), m_dialogs(dialogs), m_modes(modes) {}

    void to_start();
    void back();
    void forward();
    void to_end();

    /// @param offset  of a character in the text that the PGN view shows
    void to_text_offset(std::size_t offset);

private:
    void press(const GameSession::Step& step);
    void go(const GameSession::Step& step);

    GameSession& m_session;
    BoardView& m_board;
    WindowFrame& m_frame;
    Dialogs& m_dialogs;
    ModeController& m_modes;
};

}  // namespace velmora
