#pragma once

#include <chrono>
#include <optional>
#include <stop_token>
#include <string>

#include "engine/store/engine_variables.h"

namespace velmora {

/// Starts a program and asks whether it is an engine: its name, author, protocol and options, or nothing
/// where it isn't one that plays, or gives no answer in time. Blocks; the program has ended, with all that it
/// has started, when this returns.
///
/// @param leaving  ends the wait with nothing
std::optional<EngineVariables> ask_engine(const std::string& path, std::chrono::milliseconds patience,
                                          const std::stop_token& leaving = {});

}  // namespace velmora
