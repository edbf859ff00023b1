#pragma once

#include <cstddef>
#include <string_view>

namespace velmora {

/// A result as it stands in a text, and as PGN has it (8.2.6 of the standard).
struct ResultWord {
    std::string_view strict;  ///< "1-0", "0-1", "1/2-1/2" or "*"; empty for none
    std::size_t size = 0;     ///< bytes that it takes in the text

    explicit operator bool() const { return !strict.empty(); }
};

/// The result with which a UTF-8 text begins: with any dash, "½" for "1/2", or "½" and "1/2" alone for a
/// draw; something that can't belong to a move or a number must stand behind it.
ResultWord result_at(std::string_view text);

/// The ASCII character for one that is written in many ways: "-" for the dashes, "x" for the multiplication
/// sign; 0 for any other.
char plain_form(char32_t character);

}  // namespace velmora
