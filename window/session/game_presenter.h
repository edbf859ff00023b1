#pragma once

#include "window/session/game_session.h"
#include "window/session/screen.h"

namespace velmora {

/// Shows on the screen what changes in the session; the rooms only say what happens.
///
/// The order within a notice is fixed. The comment comes ahead of the record's text, so that the box never
/// holds the text of another move while something else is shown; the board comes last.
///
/// A class beside the session and not a part of it, so that the session knows no view, and a test can look
/// at the notices themselves.
class GamePresenter {
public:
    /// Asks the session to be told; must outlive its last notice.
    GamePresenter(GameSession& session, const Screen& screen);
    GamePresenter(const GamePresenter&) = delete;  // the session knows where it is
    GamePresenter& operator=(const GamePresenter&) = delete;

private:
    void show(Changes changes);

    GameSession& m_session;
    Screen m_screen;
};

}  // namespace velmora
