#pragma once

#include <string>

#include "channel/command_sink.h"
#include "chess/move.h"
#include "chess/position.h"
#include "engine/level.h"
#include "manager/manager_log.h"
#include "manager/manager_mode.h"

namespace velmora {

/// What all the rooms of the referee share. Touched on the Manager's thread only.
struct RefereeState {
    explicit RefereeState(CommandSink& window_lines) : window(window_lines) { position.new_game(); }

    /// Sends one line to the window.
    void send(const std::string& line) { window.put_command(line); }

    /// Lets the window have what was sent; called ahead of all that takes its time.
    void flush() { window.flush(); }

    bool white_to_move() const { return position.side_to_move() == Side::white; }

    CommandSink& window;
    ManagerLog log;
    ChessPosition position;  ///< the game as the referee knows it
    Level level;
    ManagerMode mode = ManagerMode::human_human;
    MoveTurn turn = MoveTurn::user;
    Move pending;       ///< waits for the next game step; empty when none does
    bool quit = false;  ///< set by "quit", never taken back
};

}  // namespace velmora
