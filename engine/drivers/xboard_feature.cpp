#include "engine/drivers/xboard_feature.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace velmora {

namespace {

struct Flag {
    std::string_view name;
    bool XboardFeatures::*flag;
    const char* option;  ///< announced to the user when the flag is set; null for none
};

constexpr auto flags = std::to_array<Flag>({
    {"ping", &XboardFeatures::ping, nullptr},
    {"setboard", &XboardFeatures::setboard, nullptr},
    {"san", &XboardFeatures::san, nullptr},
    {"usermove", &XboardFeatures::usermove, nullptr},
    {"time", &XboardFeatures::time, nullptr},
    {"reuse", &XboardFeatures::reuse, nullptr},
    {"colors", &XboardFeatures::colors, nullptr},
    {"nps", &XboardFeatures::nps, nullptr},
    {"debug", &XboardFeatures::debug, nullptr},
    {"memory", &XboardFeatures::memory, "option name xboard_memory type spin default 128 min 16 max 1024"},
    {"smp", &XboardFeatures::smp, "option name xboard_threads type spin default 1 min 1 max 64"},
});

}  // namespace

std::optional<XboardFeature> take_feature(std::string_view& rest) {
    for (;;) {
        rest = text::trim_leading_blanks(rest);
        if (rest.empty()) return std::nullopt;
        const auto name_end = rest.find_first_of("= ");
        XboardFeature feature{std::string(rest.substr(0, name_end)), {}};
        rest.remove_prefix(std::min(name_end, rest.size()));
        if (!rest.starts_with('=')) continue;
        rest.remove_prefix(1);
        const bool quoted = rest.starts_with('"');
        if (quoted) rest.remove_prefix(1);
        const auto value_end = std::min(rest.find(quoted ? '"' : ' '), rest.size());
        feature.value = rest.substr(0, value_end);
        rest.remove_prefix(std::min(value_end + 1, rest.size()));
        return feature;
    }
}

void apply_feature(const XboardFeature& feature, EngineVariables& variables) {
    if (feature.name == "egt") {
        variables.egt = feature.value;
    } else if (feature.name == "myname") {
        variables.set_engine_name(feature.value);
    }
    const auto flag = std::find_if(flags.begin(), flags.end(),
                                   [&feature](const Flag& known) { return known.name == feature.name; });
    if (flag == flags.end()) return;
    variables.features.*(flag->flag) = feature.value == "1";
    if (feature.value == "1" && flag->option != nullptr) variables.add_option(Option(flag->option));
}

}  // namespace velmora
