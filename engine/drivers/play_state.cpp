#include "engine/drivers/play_state.h"

#include "base/text.h"

namespace velmora {

void PlayState::reset_for_load() {
    const bool white = is_white;
    *this = PlayState();
    is_white = white;
}

void PlayState::set_level(const Level& new_level, const std::string& handicap) {
    level = new_level;
    Level scaled = new_level;
    const double part = text::WordReader(handicap).real().value_or(0.0) / 100.0;
    if (part > 0.0 && part < 1.0) {
        scaled.set_base(static_cast<std::int32_t>(scaled.base_ms() * (1.0 - part)));
        scaled.set_inc(static_cast<std::int32_t>(scaled.inc_ms() * (1.0 - part)));
    }
    clock.set_level(scaled);
}

}  // namespace velmora
