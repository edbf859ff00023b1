#include "game/movetext_wrap.h"

#include <cstddef>

namespace velmora {

namespace {

constexpr std::size_t columns = 80;

bool stands_at(std::string_view text, std::size_t at, char c) { return at < text.size() && text[at] == c; }

/// Finds where a line ends. What it learns of an annotation lives on from line to line.
class BreakFinder {
public:
    /// The index of the blank or bracket at which the first line of `text` ends; the text's length when there
    /// is no such place, neither within the line nor behind it.
    std::size_t end_of_line(std::string_view text) {
        std::size_t last = 0;  // none yet: a line never ends at its own first character
        for (std::size_t k = 0; k < text.size(); ++k) {
            if (text[k] == ']') m_can_break = true;
            if (text[k] == '[' && stands_at(text, k + 1, '%')) {
                last = k;
                m_can_break = false;
            } else if (text[k] == ' ' && m_can_break && !stands_at(text, k + 1, '%')) {
                // A line that begins with a percent sign is an escape: readers skip it.
                last = k;
            }
            if (k >= columns && last != 0) return last;
        }
        return last != 0 ? last : text.size();
    }

private:
    bool m_can_break = true;
};

}  // namespace

std::string wrap_movetext(std::string_view text) {
    std::string wrapped;
    wrapped.reserve(text.size() + text.size() / columns + 1);
    BreakFinder finder;
    while (text.size() > columns) {
        const auto end = finder.end_of_line(text);
        wrapped += text.substr(0, end);
        wrapped += '\n';
        // A blank has become the line end; a bracket opens the next line.
        text.remove_prefix(stands_at(text, end, ' ') ? end + 1 : end);
    }
    wrapped += text;
    return wrapped;
}

}  // namespace velmora
