#pragma once

#include <string>

namespace velmora {

/// Takes a file away so that the user can have it back: it goes into the desktop's trash. Where there is
/// none, it stays beside its place as a backup. Throws std::filesystem::filesystem_error when neither can be
/// done.
/// A tournament is hours of games, and "DELETE" stands beside "LOAD".
void put_away(const std::string& path);

}  // namespace velmora
