#pragma once

#include <string>
#include <string_view>

namespace velmora {

/// What the board takes from a FEN.
struct ShownPosition {
    std::string letters;  ///< 64 characters, a1 first: the letters of the pieces, "?" for an empty square
    bool white_to_move = false;
};

/// Reads the first two words of a FEN. Ranks that are too long run on into the next square; nothing is
/// checked against the rules. Throws std::logic_error for too many ranks, for a piece beyond h8 and for a
/// character that is no piece.
ShownPosition read_shown_position(const std::string& fen);

/// The pieces by side and square in words, for a screen reader:
/// "White: king e1, queen d1, rooks a1, h1. Black: king e8."
std::string describe_pieces(std::string_view letters);

}  // namespace velmora
