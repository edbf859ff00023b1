#pragma once

#include <cstdint>
#include <string>

namespace velmora {

/// Whole milliseconds of the system clock since the epoch.
std::uint64_t wall_clock_ms();

/// The value of a " TS=" stamp: wall_clock_ms() cut to 32 bits, so it wraps about every 50 days.
std::uint32_t arrival_stamp();

/// The stamp ahead of the lines of an engine's log and of a driver's trace, "SSSSS.mmm" of the system clock.
std::string wall_log_stamp();

}  // namespace velmora
