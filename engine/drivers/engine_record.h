#pragma once

#include "engine/drivers/play_state.h"
#include "engine/store/engine_variables.h"

namespace velmora {

/// All that is known of the engine of one place. GuiEngine owns it, so that the colour outlives a driver.
struct EngineRecord {
    EngineVariables variables;
    PlayState state;
};

}  // namespace velmora
