#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/stopwatch.h"
#include "chess/board/square.h"
#include "window/session/board_view.h"
#include "window/session/clock_view.h"
#include "window/session/dialogs.h"
#include "window/session/game_session.h"
#include "window/session/manager_link.h"
#include "window/session/setup_editor.h"
#include "window/session/window_frame.h"

namespace velmora {

/// Turns what the person does on the board into moves: drags, and clicks on a piece and on its destination.
///
/// Drags and clicks end in the same place, where a move is looked for among the legal ones; whoever types
/// it goes there, too. The referee is told of legal moves only, though it looks again: its board may have
/// changed meanwhile.
class UserMoves {
public:
    /// Seconds after the start, and after the piece chooser closed, in which the board takes no click: the
    /// click that closed a dialog is none on the board.
    static constexpr double default_click_delay_s = 0.5;

    UserMoves(GameSession& session, BoardView& board, ClockView& clocks, const WindowFrame& frame,
              Dialogs& dialogs, ManagerLink& manager, double click_delay_s = default_click_delay_s);

    /// The board reports a drag from `from` to `to`, or a click when both are the same square.
    void on_board(Square from, Square to);

    /// A move has been typed. Gives what is wrong with it; empty when it has been played.
    std::string on_typed(const std::string& text);

    /// Has `take` asked ahead of each legal move of the person; what one of them takes isn't played.
    void divert(std::function<bool(const Move&)> take) { m_take.push_back(std::move(take)); }

    /// Has `take` told of what the person does on the board while it is the engine's move.
    void while_waiting(std::function<void(Square from, Square to)> take) { m_waiting = std::move(take); }

    /// Plays the move between two squares, after asking what a pawn becomes. False, and nothing picked up any
    /// more, where there is no such move.
    bool play(Square from, Square to);

    /// A piece has been picked up: its targets are shown until it is dropped.
    void on_piece_picked(std::optional<Square> square);

private:
    void on_click(Square square);
    void make(const Move& move);
    bool sets_up() const { return m_frame.mode() == Mode::setup; }
    bool may_move() const { return !m_session.engine_to_move(); }
    /// Of the side to move, which between people is each in turn.
    bool is_own_piece(Square square) const;
    PieceKind choose_promotion(Square from, Square to);

    GameSession& m_session;
    BoardView& m_board;
    ClockView& m_clocks;
    const WindowFrame& m_frame;
    Dialogs& m_dialogs;
    ManagerLink& m_manager;
    SetupEditor m_setup;
    Stopwatch m_click_timer;  // runs since the start or since the piece chooser closed
    const double m_click_delay_s;
    std::vector<std::function<bool(const Move&)>> m_take;
    std::function<void(Square, Square)> m_waiting = [](Square, Square) {};
};

}  // namespace velmora
