#pragma once

#include <string_view>

#include "channel/text.h"

namespace velmora {

/// Whether a line of a driver makes the referee act. All else that an engine says is passed on or noted, and
/// may wait for the lines behind it.
inline bool is_decisive(std::string_view line) {
    const auto word = text::first_word(line);
    return word == "bestmove" || word == "resign";
}

}  // namespace velmora
