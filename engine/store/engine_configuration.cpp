#include "engine/store/engine_configuration.h"

namespace velmora {

void EngineConfiguration::add_option(const Option& option) {
    const auto [place, is_new] = options.try_emplace(option.name, option);
    if (is_new) return;
    const bool changed = place->second.changed;
    place->second = option;
    place->second.changed = changed;
}

}  // namespace velmora
