#pragma once

#include <span>
#include <string>
#include <string_view>

namespace velmora {

/// A numeric glyph, how it is printed in books, and in words.
struct MoveSymbol {
    std::string_view glyph;  ///< "$1"
    std::string_view sign;   ///< "!"
    std::string_view plain;  ///< the same for a font without this sign
    std::string_view name;   ///< "good move"
};

/// The symbols that a person can give: of moves, then of positions, as numbered and named by the PGN standard
/// (section 10).
std::span<const MoveSymbol> move_symbols();

/// Printed: "!" of "$1"; a glyph that isn't among them as it stands.
std::string_view sign_of(std::string_view glyph);
/// In words: "good move" of "$1"; a glyph that isn't among them as it stands.
std::string_view name_of(std::string_view glyph);

}  // namespace velmora
