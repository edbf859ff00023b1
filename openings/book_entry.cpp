#include "openings/book_entry.h"

#include <string_view>

namespace velmora {

std::string BookMove::to_string() const {
    constexpr std::string_view promotion_letters = "nbrq";
    std::string text = from().name() + to().name();
    const auto piece = static_cast<std::size_t>(promotion());
    if (piece >= 1 && piece <= promotion_letters.size()) text += promotion_letters[piece - 1];
    return text;
}

}  // namespace velmora
