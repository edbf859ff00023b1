#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/store/engine_variables.h"

namespace velmora {

/// One pair of an xboard engine's "feature" line.
struct XboardFeature {
    std::string name;
    std::string value;  ///< without its quotes
};

/// Takes the next name=value or name="value" pair off the front of `rest`; a word without an equals sign is
/// skipped. Nothing at the end.
std::optional<XboardFeature> take_feature(std::string_view& rest);

/// Stores what the feature says about the engine; those that say nothing of use store nothing.
void apply_feature(const XboardFeature& feature, EngineVariables& variables);

}  // namespace velmora
