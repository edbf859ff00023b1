#include "engine/time/wall_clock.h"

#include <chrono>

#include "base/text.h"

namespace velmora {

std::uint64_t wall_clock_ms() {
    const auto since_epoch = std::chrono::system_clock::now().time_since_epoch();
    return static_cast<std::uint64_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(since_epoch).count());
}

std::uint32_t arrival_stamp() { return static_cast<std::uint32_t>(wall_clock_ms()); }

std::string wall_log_stamp() { return text::log_stamp(wall_clock_ms()); }

}  // namespace velmora
