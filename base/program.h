#pragma once

namespace velmora {

/// What the program calls itself to its users.
inline constexpr const char* program_name = "Velmora GUI";

/// The version of the project, which is told in the top CMakeLists.txt alone; the build hands it in. A
/// constant of its own source, so that a new version compiles one file anew.
extern const char* const program_version;

}  // namespace velmora
