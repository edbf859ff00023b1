#pragma once

#include "engine/store/engine_configuration.h"
#include "engine/store/engine_identity.h"

namespace velmora {

/// What of an engine can be copied, stored and shown without an engine running: who it is and how it is set.
///
/// The list of installed engines keeps it and the dialogs work on copies, so nothing here changes by itself:
/// what a game does to an engine stands in PlayState. The fields of both parts are reached directly: whoever
/// shows a name or an Elo need not know in which part it stands.
struct EngineVariables : EngineIdentity, EngineConfiguration {
    /// Forgets what the last process said: protocol, options, features and egt get their initial values.
    /// Names, Elo and handicap stay.
    void reset_for_load();
};

}  // namespace velmora
