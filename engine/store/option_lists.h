#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "engine/store/option.h"

/// What happens to an engine's options before and after the dialog that edits them.
namespace velmora::option_lists {

/// The number of a spin option; nothing when the text is no whole number of 64 bits.
std::optional<std::int64_t> spin_number(std::string_view text);

/// The options in the form that the dialog takes. A spin option that could not be shown as one (a text of
/// its three is no number, or its range is empty) becomes a string option.
/// A text can always be shown and changed, and the engine is the one to judge it; a spin button would have
/// to make up a number.
std::vector<Option> for_dialog(const Options& options);

/// The options of `after` whose name or value differs from those at the same place of `before`.
/// By place, since the dialog keeps the order. An engine is told these alone: a button among the options
/// does something at each telling.
std::vector<Option> changed(const std::vector<Option>& before, const std::vector<Option>& after);

}  // namespace velmora::option_lists
