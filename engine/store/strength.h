#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "engine/store/option.h"

namespace velmora {

/// The one option by which an engine plays weaker, as a slider shows it.
struct StrengthControl {
    enum class Scale { elo, level };

    Scale scale = Scale::level;
    std::string option;   ///< "UCI_Elo", "Skill Level"
    std::string limiter;  ///< the check option that has it count, "UCI_LimitStrength"; empty for none
    std::int64_t weakest = 0;
    std::int64_t strongest = 0;  ///< above weakest
    std::int64_t value = 0;
    bool limited = false;  ///< the engine plays weaker now
};

/// What an engine offers: Elo by the UCI protocol's "UCI_Elo" with "UCI_LimitStrength", else levels by the
/// names that engines use for them. Nothing where there is neither.
std::optional<StrengthControl> strength_of(const Options& options);

/// The options, by name and value, that have the engine play with this strength; full strength without one.
std::vector<std::pair<std::string, std::string>> options_of_strength(const StrengthControl& control,
                                                                     std::optional<std::int64_t> value);

}  // namespace velmora
