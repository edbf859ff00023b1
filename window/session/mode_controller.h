#pragma once

#include "window/session/board_view.h"
#include "window/session/clock_view.h"
#include "window/session/dialogs.h"
#include "window/session/game_session.h"
#include "window/session/manager_link.h"
#include "window/session/seated_engine.h"
#include "window/session/window_frame.h"

namespace velmora {

/// What the six radio actions, "Start thinking" and "New game" bring about.
///
/// What a mode is, for the window, is all told by five things: who plays which side, whether the clocks
/// run, what the referee is told, which entries of the menu are of use, and what happens to the board. Each
/// handler sets what its mode needs of these, whichever mode was on before.
class ModeController {
public:
    ModeController(GameSession& session, BoardView& board, ClockView& clocks, WindowFrame& frame,
                   Dialogs& dialogs, ManagerLink& manager, SeatedEngine& engine)
        : m_session(session),
          m_board(board),
          m_clocks(clocks),
          m_frame(frame),
          m_dialogs(dialogs),
          m_manager(manager),
          m_engine(engine) {}

    /// A radio action has been switched on or off. The one switched off is told first.
    /// A click on the mode that is on already switches nothing and tells nobody.
    void on_switched(Mode mode, bool on);
    /// The board shows a position that didn't come by a move: the referee follows, and an engine that takes
    /// part in the mode goes on from there.
    void follow_position();

    void start_thinking();
    void new_game();

    /// Whether an engine searches or owes a move, as far as the window knows.
    /// Only then the referee has to be woken; at rest its thread sleeps.
    bool awaits_engine() const;

private:
    using Handler = void (ModeController::*)(bool on);

    void setup(bool on);
    void human_human(bool on);
    void human_computer(bool on);
    void analyze_position(bool on);
    void learn_openings(bool on);
    void tournament(bool on);

    void send_position();
    void leave_move_to_person();

    GameSession& m_session;
    BoardView& m_board;
    ClockView& m_clocks;
    WindowFrame& m_frame;
    Dialogs& m_dialogs;
    ManagerLink& m_manager;
    SeatedEngine& m_engine;
};

}  // namespace velmora
