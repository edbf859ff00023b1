#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include <gtkmm/window.h>

#include "engine/store/strength.h"

namespace velmora {

/// The dialog "Strength" of an engine: full strength, or a value of its scale by a slider. Nothing unless the
/// person answers "OK"; then nothing within for full strength.
std::optional<std::optional<std::int64_t>> ask_strength(Gtk::Window& parent, const std::string& engine,
                                                        const StrengthControl& control);

}  // namespace velmora
