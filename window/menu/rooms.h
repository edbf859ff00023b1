#pragma once

#include "window/flows/engine_flows.h"
#include "window/flows/file_flows.h"
#include "window/flows/tournament_flows.h"
#include "window/menu/secondary_windows.h"
#include "window/session/manager_link.h"
#include "window/session/mode_controller.h"

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
