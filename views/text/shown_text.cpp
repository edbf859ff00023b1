#include "views/text/shown_text.h"

#include "base/text.h"

namespace velmora {

std::string shown_bytes(std::string_view text, std::size_t longest) {
    const auto kept = text::utf8_prefix(text, longest);
    return text::displayable(kept) + (kept.size() < text.size() ? "\u2026" : "");
}

Glib::ustring shown_text(std::string_view text, std::size_t longest) { return shown_bytes(text, longest); }

}  // namespace velmora
