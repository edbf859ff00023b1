#pragma once

#include <string>
#include <vector>

#include <gtkmm/window.h>

#include "engine/store/engine_variables.h"

namespace velmora {

/// The dialog "Find engines": looks for engines in the usual places, and in folders that the person chooses,
/// and shows them as they answer. Gives those that the person has ticked and wants to have installed.
/// @param installed  paths of the programs that are in the list of engines; they are shown as such
std::vector<EngineVariables> find_engines(Gtk::Window& parent, const std::vector<std::string>& installed);

}  // namespace velmora
