#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The directory that holds the tournaments' files. A directory is given with its trailing slash.
namespace velmora::tournament_store {

/// The file of the tournament `name`. The name is not looked at: one with a slash leads elsewhere.
std::string path(const std::string& directory, const std::string& name);

/// The names of all tournaments, sorted; none when the directory can't be read.
std::vector<std::string> names(const std::string& directory);

/// What keeps `event` from being the name of a tournament's file, in words for the user; nothing when it can.
///
/// Asked when a person names an event, where it can still be changed; path() trusts its caller.
std::optional<std::string> name_fault(std::string_view event);

}  // namespace velmora::tournament_store
