#pragma once

#include "window/engine_flows.h"
#include "window/file_flows.h"
#include "window/manager_link.h"
#include "window/mode_controller.h"
#include "window/secondary_windows.h"
#include "window/tournament_flows.h"

namespace velmora {

/// What the menu's entries call into; owned by the Interface.
struct Rooms {
    ManagerLink& manager;
    ModeController& modes;
    FileFlows& files;
    EngineFlows& engines;
    TournamentFlows& tournaments;
    SecondaryWindows& windows;
};

}  // namespace velmora
