#pragma once

#include <array>
#include <cstddef>

namespace velmora {

/// The six radio actions of the Mode menu, in menu order.
enum class Mode : std::size_t {
    setup,
    human_human,
    human_computer,
    analyze_position,
    learn_openings,
    tournament
};

inline constexpr std::size_t mode_count = 6;

/// The names of the radio actions, by Mode.
inline constexpr std::array<const char*, mode_count> mode_actions = {
    "Setup", "HumanHuman", "HumanComputer", "AnalyzePosition", "LearnOpenings", "Tournament"};

}  // namespace velmora
