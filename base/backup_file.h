#pragma once

#include <string>

namespace velmora {

/// The neighbour under which the content of a file that is replaced or given up stays: its name with "~".
inline std::string backup_path(const std::string& path) { return path + '~'; }

/// Keeps what the file `path` holds now as its backup, in place of the one there was. Does nothing where
/// there is no such file. Throws std::runtime_error with the path and the system's reason.
///
/// Copied, not renamed: the file itself stays in place, so that a fault on the way costs nothing.
void back_up(const std::string& path);

}  // namespace velmora
