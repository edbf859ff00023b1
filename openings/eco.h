#pragma once

#include <cstdint>
#include <string>

#include "openings/eco_table.h"

namespace velmora {

/// Names the opening of a position by its Polyglot key: ECO code, opening, variation.
///
/// It goes by position, so a transposition finds its name. Each function gives an empty string for a position
/// without a name; the last named position of a game is for the caller to find.
///
/// By binary search in a table that the compiler has placed in the program: nothing is loaded or built at
/// the start.
class Eco {
public:
    std::string code(std::uint64_t key) const { return text(key, &EcoRow::code); }
    std::string opening(std::uint64_t key) const { return text(key, &EcoRow::opening); }
    std::string variation(std::uint64_t key) const { return text(key, &EcoRow::variation); }

private:
    static std::string text(std::uint64_t key, std::string_view EcoRow::*field);
};

}  // namespace velmora
