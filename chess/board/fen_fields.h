#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velmora {

/// The six fields of a FEN text, as they stand in it; absent ones are empty.
///
/// A half-move count or move number that is absent, no number, or not in 0..65535 is "0" or "1".
///
/// FEN is told in the PGN standard, 16.1. Many sources write four fields, as EPD does, so the two counters
/// have defaults while a missing field of the first four is for the reader of each to judge.
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
///
/// The text must outlive the result. An EPD has its operations where the counters would be: a word that is
/// no number counts as none.
FenFields split_fen(std::string_view text);

}  // namespace velmora
