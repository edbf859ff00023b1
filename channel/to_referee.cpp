#include "channel/to_referee.h"

namespace velmora::to_referee {

using Vocabulary = line_form::Vocabulary<Line>;

std::string encode(const Line& line) { return Vocabulary::write(line); }

std::optional<Line> decode(std::string_view command) { return Vocabulary::read(command); }

Effects effects_of(std::string_view command) {
    return Vocabulary::effects_of<Effects>(text::first_word(command));
}

}  // namespace velmora::to_referee
