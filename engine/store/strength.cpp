#include "engine/store/strength.h"

#include <algorithm>
#include <array>

#include "engine/store/option_lists.h"

namespace velmora {

namespace {

constexpr const char* elo_option = "UCI_Elo";
constexpr const char* limit_option = "UCI_LimitStrength";
constexpr std::array<const char*, 5> level_options = {"Skill Level", "Skill", "Strength", "Level",
                                                      "Playing Strength"};

/// A control of a spin option whose range is one; nothing for any other.
std::optional<StrengthControl> control_of(const Options& options, const std::string& name) {
    const auto found = options.find(name);
    if (found == options.end() || found->second.type != "spin") return std::nullopt;
    const Option& option = found->second;
    const auto min = option_lists::spin_number(option.min);
    const auto max = option_lists::spin_number(option.max);
    const auto value = option_lists::spin_number(option.value);
    if (!min || !max || !value || *min >= *max) return std::nullopt;
    StrengthControl control;
    control.option = name;
    control.weakest = *min;
    control.strongest = *max;
    control.value = std::clamp(*value, *min, *max);
    control.limited = control.value < control.strongest;
    return control;
}

}  // namespace

std::optional<StrengthControl> strength_of(const Options& options) {
    const auto limiter = options.find(limit_option);
    if (auto control = control_of(options, elo_option); control && limiter != options.end()) {
        control->scale = StrengthControl::Scale::elo;
        control->limiter = limit_option;
        control->limited = limiter->second.value == "true";
        return control;
    }
    for (const char* name : level_options) {
        if (auto control = control_of(options, name)) return control;
    }
    return std::nullopt;
}

std::vector<std::pair<std::string, std::string>> options_of_strength(const StrengthControl& control,
                                                                     std::optional<std::int64_t> value) {
    if (control.limiter.empty()) return {{control.option, std::to_string(value.value_or(control.strongest))}};
    if (!value) return {{control.limiter, "false"}};
    return {{control.limiter, "true"}, {control.option, std::to_string(*value)}};
}

}  // namespace velmora
