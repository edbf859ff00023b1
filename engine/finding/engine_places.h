#pragma once

#include <string>
#include <vector>

namespace velmora {

/// Where programs may lie that are known to be chess engines: the names under which Debian's packages install
/// them, in the search path, in the folders of games, and in the packages' own folders below /usr/lib.
///
/// Only known names: a program is asked by starting it, and nobody has asked for any other to be started.
/// @param search_path  as in $PATH
/// @return paths of programs that are there, each once, whatever links lead to it
std::vector<std::string> known_engine_programs(const std::string& search_path);

/// All programs of a folder that the person has chosen, by name; those in folders below it are left out.
std::vector<std::string> programs_of_folder(const std::string& folder);

}  // namespace velmora
