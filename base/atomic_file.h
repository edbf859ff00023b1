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
///
/// The neighbour stands in the directory of the target because a rename replaces a file in one step only
/// within a file system. It is forced to the disk ahead of the rename: else a power cut could leave the
/// new name with no content behind it. A lock and not the process's number tells whose a neighbour is,
/// since the system drops a lock with its process, whose number it gives to another one some day.
void write_file_atomically(const std::string& path, std::string_view text);

/// Adds `text` to the end of the file `path`, which is made when it isn't there.
///
/// Throws std::runtime_error with the path and the system's reason; then the file is as it was, or, where
/// another process has appended meanwhile and a part had been written, the reason says so.
///
/// Each write goes to the end that the file has at that moment (O_APPEND), so two programs that append to
/// one archive don't overwrite each other. The whole is not written anew as above: an archive may have
/// gigabytes.
void append_to_file(const std::string& path, std::string_view text);

/// The same with what `ahead` gives between the text and the content of an ordinary file, written with the
/// text. It is called while the file is locked against others that append, as far as nobody else holds the
/// lock: nobody waits.
///
/// What stands ahead of the text may depend on how the file ends, which is only certain while nobody else
/// appends. Somebody who never lets go of the lock must not stop the program; so the lock is tried, not
/// waited for.
void append_to_file_behind(const std::string& path, const std::function<std::string()>& ahead,
                           std::string_view text);

}  // namespace velmora
