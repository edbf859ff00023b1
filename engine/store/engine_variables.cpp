#include "engine/store/engine_variables.h"

#include <string>

namespace velmora {

void EngineVariables::reset_for_load() {
    protocol = Protocol::autodetect;
    const std::string kept = handicap;
    static_cast<EngineConfiguration&>(*this) = EngineConfiguration();
    handicap = kept;
}

}  // namespace velmora
