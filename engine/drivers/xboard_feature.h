#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/store/engine_variables.h"

namespace velmora {

/// One pair of an xboard engine's "feature" line.
/// The pairs stand in any number on one line, such as: feature ping=1 myname="Some Engine 2.1" done=0
struct XboardFeature {
    std::string name;
    std::string value;  ///< without its quotes
};

/// Takes the next name=value or name="value" pair off the front of `rest`; a word without an equals sign is
/// skipped. Nothing at the end.
/// A view that is shortened, not a list: the probe answers each pair before it looks at the next, and stops
/// reading at "done=1".
std::optional<XboardFeature> take_feature(std::string_view& rest);

/// Stores what the feature says about the engine; those that say nothing of use store nothing.
/// What isn't "1" switches off. "memory" and "smp" have commands of their own in the protocol; as options
/// the user finds them where a UCI engine has its "Hash" and "Threads".
void apply_feature(const XboardFeature& feature, EngineVariables& variables);

}  // namespace velmora
