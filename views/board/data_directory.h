#pragma once

#include <span>
#include <string>

namespace velmora {

/// The directory of the program's images below a data directory.
inline constexpr char image_directory[] = "velmora.files/svg/";

/// What stands ahead of "velmora.files/" in the path of a data file: nothing when the images lie in the
/// working directory, else "/usr/local/games/" when they lie there, else "/usr/games/".
/// Looked for at each call and not kept: that costs two looks at most, and the working directory may
/// change.
std::string data_directory();

/// The first candidate that holds the images, the last one when none does. REQUIRES: at least one.
std::string data_directory(std::span<const std::string> candidates);

/// The whole path of an image, by its file name.
std::string image_path(const std::string& file);

}  // namespace velmora
