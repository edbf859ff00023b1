#pragma once

#include <string>
#include <string_view>

namespace velmora {

/// Writes `text` to the file `path` so that at any moment either the old content or the new one stands there
/// whole: the text goes to a neighbour file, is forced to the disk, and is then renamed over `path`.
///
/// A link is followed and stays a link; an existing file keeps its permissions. Throws std::runtime_error
/// with the path and the system's reason; then the old file is as it was and no neighbour is left behind.
/// Refuses what is no plain file (a directory, a device) and a file that may not be written.
void write_file_atomically(const std::string& path, std::string_view text);

/// Adds `text` to the end of the file `path`, which is made when it isn't there.
///
/// Throws std::runtime_error with the path and the system's reason; then the file is as it was.
void append_to_file(const std::string& path, std::string_view text);

}  // namespace velmora
