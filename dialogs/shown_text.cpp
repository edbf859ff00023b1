#include "dialogs/shown_text.h"

#include <algorithm>

#include "channel/text.h"

namespace velmora {

std::string shown_bytes(std::string_view text, std::size_t longest) {
    constexpr std::string_view ellipsis = "\u2026";
    const bool cut = text.size() > longest;
    std::size_t end = cut ? longest : text.size();
    // A character of several bytes is not torn apart: its continuation bytes are 10xxxxxx.
    while (cut && end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
    std::string shown = text::valid_utf8(text.substr(0, end));
    std::replace(shown.begin(), shown.end(), '\0', '?');
    if (cut) shown += ellipsis;
    return shown;
}

Glib::ustring shown_text(std::string_view text, std::size_t longest) { return shown_bytes(text, longest); }

}  // namespace velmora
