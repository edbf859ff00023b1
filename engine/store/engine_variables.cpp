#include "engine/store/engine_variables.h"

#include "base/text.h"

namespace velmora {

void EngineVariables::set_engine_name(const std::string& reported) {
    engine_name = text::utf8_prefix(reported, longest_name);
    if (name.empty()) name = engine_name;
}

void EngineVariables::reset_for_load() {
    level = Level();
    protocol = Protocol::autodetect;
    clock.set_level(level);
    options.clear();
    features = XboardFeatures();
    opponent_time = 0;
    egt = EngineVariables().egt;
}

void EngineVariables::set_level(const Level& new_level) {
    level = new_level;
    Level scaled = new_level;
    const double part = text::WordReader(handicap).real().value_or(0.0) / 100.0;
    if (part > 0.0 && part < 1.0) {
        scaled.set_base(static_cast<std::int32_t>(scaled.base_ms() * (1.0 - part)));
        scaled.set_inc(static_cast<std::int32_t>(scaled.inc_ms() * (1.0 - part)));
    }
    clock.set_level(scaled);
}

void EngineVariables::add_option(const Option& option) {
    const auto [place, is_new] = options.try_emplace(option.name, option);
    if (is_new) return;
    const bool changed = place->second.changed;
    place->second = option;
    place->second.changed = changed;
}

}  // namespace velmora
