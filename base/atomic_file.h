#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace velmora {

/// Writes `text` to the file `path` so that at any moment either the old content or the new one stands there
/// whole: the text goes to a neighbour file, is forced to the disk, and is then renamed over `path`.
///
/// A link is followed and stays a link; an existing file keeps its permissions. Throws std::runtime_error
/// with the path and the system's reason; then the old file is as it was and no neighbour is left behind.
/// Refuses what is no plain file (a directory, a device) and a file that may not be written.
///
/// A process that is killed meanwhile leaves its neighbour; the next write of the same file removes it. The
/// name of a neighbour, ".velmora-<target>-<n>", tells its target by a hash, and whoever writes it holds a
/// lock on it, so that a neighbour that can be locked is nobody's.
void write_file_atomically(const std::string& path, std::string_view text);

/// Adds `text` to the end of the file `path`, which is made when it isn't there.
///
/// Throws std::runtime_error with the path and the system's reason; then the file is as it was, or, where
/// another process has appended meanwhile and a part had been written, the reason says so.
void append_to_file(const std::string& path, std::string_view text);

/// The same with what `ahead` gives between the text and the content of an ordinary file, written with the
/// text. It is called while the file is locked against others that append, as far as nobody else holds the
/// lock: nobody waits.
void append_to_file_behind(const std::string& path, const std::function<std::string()>& ahead,
                           std::string_view text);

}  // namespace velmora
