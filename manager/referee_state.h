#pragma once

#include <string>

#include "channel/command_sink.h"
#include "manager/manager_log.h"
#include "manager/manager_mode.h"

namespace velmora {

/// What all the rooms of the referee share. Touched on the Manager's thread only.
struct RefereeState {
    explicit RefereeState(CommandSink& window_lines) : window(window_lines) {}

    /// Sends one line to the window.
    void send(const std::string& line) { window.put_command(line); }

    CommandSink& window;
    ManagerLog log;
    ManagerMode mode = ManagerMode::human_human;
    MoveTurn turn = MoveTurn::user;
    bool quit = false;  ///< set by "quit", never taken back
};

}  // namespace velmora
