#include "channel/to_window.h"

namespace velmora::to_window {

using Vocabulary = line_form::Vocabulary<Line>;

std::string encode(const Line& line) { return Vocabulary::write(line); }

std::optional<Line> decode(std::string_view text) { return Vocabulary::read(text); }

Effects effects_of(std::string_view text) { return Vocabulary::effects_of<Effects>(text::first_word(text)); }

}  // namespace velmora::to_window
