#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "window/session/board_view.h"
#include "window/session/dialogs.h"
#include "window/session/game_session.h"
#include "window/session/mode_controller.h"
#include "window/session/window_frame.h"

namespace velmora {

/// Steps through the record: the four buttons under the board and clicks into the PGN text.
///
/// Looking at the game leaves a game against an engine: the person is no longer at the position to be
/// played, and the engine must not move there. Analysis and drill follow the board instead. A game that was
/// left so can be taken up again until another record comes or an engine plays again.
class Navigation {
public:
    Navigation(GameSession& session, BoardView& board, WindowFrame& frame, Dialogs& dialogs,
               ModeController& modes);
    Navigation(const Navigation&) = delete;  // the session knows where it is
    Navigation& operator=(const Navigation&) = delete;

    void to_start();
    void back();
    void forward();
    void to_end();

    /// So many moves forward, or back where it is negative.
    void move_by(int steps);
    /// Goes to a node of the record; one that isn't there is nowhere.
    void to_node(std::int32_t id);

    /// Whether a game against the engine was left by looking at its earlier moves, and can be gone on with.
    bool has_left_game() const { return m_left && m_frame.mode() == Mode::human_human; }
    /// Goes back to where that game was left and plays on against the engine, which thinks if it was its
    /// turn. Does nothing without such a game.
    void resume_game();

    /// @param offset  of a character in the text that the PGN view shows
    void to_text_offset(std::size_t offset);

private:
    /// A game against the engine as it was left.
    struct LeftGame {
        std::int32_t node;
        bool engine_to_move;
    };

    void press(const GameSession::Step& step);
    void go(const GameSession::Step& step);
    void note_left_game();

    GameSession& m_session;
    BoardView& m_board;
    WindowFrame& m_frame;
    Dialogs& m_dialogs;
    ModeController& m_modes;
    std::optional<LeftGame> m_left;
};

}  // namespace velmora
