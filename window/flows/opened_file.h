#pragma once

#include <string>

namespace velmora {

/// What a file from outside is opened as.
enum class OpenedFile { none, game, position, book };

/// The kind of a file by its extension, in upper or lower case.
/// The contents aren't looked at: a position is a line of text like many others, and a book has no mark at
/// all.
OpenedFile kind_of_file(const std::string& path);

}  // namespace velmora
