#pragma once

#include <stop_token>
#include <utility>

#include "channel/command_sink.h"
#include "channel/to_window.h"
#include "chess/board/move.h"
#include "chess/moves/position.h"
#include "engine/time/level.h"
#include "manager/manager_log.h"
#include "manager/manager_mode.h"

namespace velmora {

/// What all the rooms of the referee share. Touched on the Manager's thread only.
///
/// A struct without a rule of its own, on purpose: the modes are told apart by who changes what, and each
/// of them needs nearly all of it. No lock, since one thread owns it; what other threads may see stands
/// elsewhere.
struct RefereeState {
    RefereeState(CommandSink& window_lines, std::stop_token quit_is_due)
        : window(window_lines), leaving(std::move(quit_is_due)) {
        position.new_game();
    }

    /// Sends one line to the window.
    void send(const to_window::Line& line) { window.put_command(to_window::encode(line)); }

    /// Lets the window have what was sent; called ahead of all that takes its time.
    void flush() { window.flush(); }

    /// Changes the mode, and what a mode has put on the board goes with it.
    void enter(ManagerMode next) {
        if (next != mode) clear_arrows();
        mode = next;
    }

    /// Takes the arrows off the board, if there are any.
    void clear_arrows() {
        if (std::exchange(has_arrows, false)) send(to_window::ClearArrows());
    }

    bool white_to_move() const { return position.side_to_move() == Side::white; }

    CommandSink& window;
    const std::stop_token leaving;  ///< "quit" waits: nothing may take long any more
    ManagerLog log;
    ChessPosition position;  ///< the game as the referee knows it
    Level level;
    ManagerMode mode = ManagerMode::human_human;
    MoveTurn turn = MoveTurn::user;
    /// One is enough: a later move of the same turn replaces the earlier one.
    Move pending;             ///< waits for the next game step; empty when none does
    bool has_arrows = false;  ///< of the drill, on the window's board
    bool game_over = false;   ///< nobody has asked for anything since a game ended
    bool quit = false;        ///< set by "quit", never taken back
};

}  // namespace velmora
