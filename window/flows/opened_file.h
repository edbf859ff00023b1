#pragma once

#include <string>

namespace velmora {

/// What a file from outside is opened as.
enum class OpenedFile { none, game, position, book };

/// The kind of a file by its extension, in upper or lower case.
OpenedFile kind_of_file(const std::string& path);

}  // namespace velmora
