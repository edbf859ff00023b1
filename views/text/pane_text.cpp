#include "views/text/pane_text.h"

#include <algorithm>

namespace velmora {

namespace {

std::size_t characters(const std::string& text) {
    return std::size_t(
        std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

}  // namespace

PaneChange lengthen_pane(std::size_t length, const std::vector<std::string>& texts) {
    PaneChange change;
    for (const std::string& text : texts) {
        if (length > 4) {
            if (change.added.empty()) {
                change.removed = 2;
            } else {
                change.added.resize(change.added.size() - 2);
            }
            length -= 2;
        }
        change.added += text + "\n\n";
        length += characters(text) + 2;
    }
    return change;
}

}  // namespace velmora
