#include "engine/store/option_lists.h"

#include <algorithm>

#include "base/text.h"

namespace velmora::option_lists {

std::optional<std::int64_t> spin_number(std::string_view text) {
    return text::strict_integer<std::int64_t>(text::trim_white_space(text));
}

std::vector<Option> for_dialog(const Options& options) {
    std::vector<Option> list;
    for (const auto& [name, option] : options) {
        Option& entry = list.emplace_back(option);
        if (entry.type != "spin") continue;
        const auto min = spin_number(entry.min);
        const auto max = spin_number(entry.max);
        if (!min || !max || *min > *max || !spin_number(entry.value)) entry.type = "string";
    }
    return list;
}

std::vector<Option> changed(const std::vector<Option>& before, const std::vector<Option>& after) {
    std::vector<Option> list;
    for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i) {
        if (before[i].name != after[i].name || before[i].value != after[i].value) list.push_back(after[i]);
    }
    return list;
}

}  // namespace velmora::option_lists
