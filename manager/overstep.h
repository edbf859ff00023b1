#pragma once

#include <cstdint>

namespace velmora {

/// What an engine may overstep its time by without losing, ms: pipes and a busy machine take their time, too.
inline constexpr std::int32_t forgiven_overstep = 500;

}  // namespace velmora
