#pragma once

#include "engine/drivers/play_state.h"
#include "engine/store/engine_variables.h"

namespace velmora {

/// All that is known of the engine of one place.
///
/// The two parts change for different reasons and at different times: the one is what an engine announces and
/// a person sets, and is copied to wherever an engine is shown or stored; the other is written by the driver
/// at every move, and means nothing without a game. GuiEngine owns both, so that what a driver has filled in
/// outlives it: the probe hands over to the driver of its protocol, and the colour stays when a process is
/// replaced.
struct EngineRecord {
    EngineVariables variables;
    PlayState state;
};

}  // namespace velmora
