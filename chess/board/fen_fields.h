#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velmora {

/// The six fields of a FEN text, as they stand in it; absent ones are empty.
///
/// A half-move count or move number that is absent, no number, or not in 0..65535 is "0" or "1".
struct FenFields {
    std::string_view board;
    std::string_view side;
    std::string_view castling;
    std::string_view en_passant;
    std::string_view halfmoves;
    std::string_view fullmove;

    std::uint16_t halfmoves_number() const;
    std::uint16_t fullmove_number() const;

    /// The fields with single blanks between them.
    std::string joined() const;
};

/// Splits at white space; the fields point into `text`.
FenFields split_fen(std::string_view text);

}  // namespace velmora
