#pragma once

#include <cstdint>
#include <string>

namespace velmora {

/// Whole milliseconds of the system clock since the epoch.
std::uint64_t wall_clock_ms();

/// The value of a " TS=" stamp: wall_clock_ms() cut to 32 bits, so it wraps about every 50 days.
/// It goes through text lines and shows in logs, where a wall clock can be compared with an engine's own
/// log; what is measured for a game's clock is measured by the steady one.
std::uint32_t arrival_stamp();

/// The stamp ahead of the lines of an engine's log and of a driver's trace, "SSSSS.mmm" of the system clock.
std::string wall_log_stamp();

}  // namespace velmora
