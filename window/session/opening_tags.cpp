#include "window/session/opening_tags.h"

#include <stdexcept>
#include <string>

namespace velmora {

void tag_opening(Game& record, const Eco& openings, std::uint64_t key) {
    const std::string code(openings.code(key));
    if (code.empty()) return;
    record.set_tag("ECO", code);
    record.set_tag("Opening", std::string(openings.opening(key)));
}

void tag_opening_of_main_line(Game& record, const Eco& openings) {
    Game reader = record;
    reader.to_start();
    try {
        while (!reader.forward().empty()) tag_opening(record, openings, reader.key());
    } catch (const std::logic_error&) {
        // A move that can't be played ends what can be named.
    }
}

}  // namespace velmora
