#pragma once

#include <cstdint>
#include <limits>

namespace velmora {

/// The full-move number after `number`. Files may hold any number; the largest one stays. Counting past it
/// would be undefined, and a file must not be able to bring that about.
constexpr std::int32_t next_move_number(std::int32_t number) {
    return number == std::numeric_limits<std::int32_t>::max() ? number : number + 1;
}

}  // namespace velmora
