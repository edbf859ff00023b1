#pragma once

#include <string>
#include <string_view>

#include "chess/board/placement.h"

namespace velmora {

/// What the board takes from a FEN.
struct ShownPosition {
    Placement pieces;
    bool white_to_move = false;
};

/// Reads the first two words of a FEN. Ranks that are too long run on into the next square; nothing is
/// checked against the rules. Throws std::logic_error for too many ranks, for a piece beyond h8 and for a
/// character that is no piece.
/// The board must be able to show what is no position, one that is being set up for instance, so it doesn't
/// go through the rules' own reader.
ShownPosition read_shown_position(const std::string& fen);

/// The piece of a letter, none for "?". Throws std::logic_error for any other character.
Piece shown_piece(char letter);

/// The pieces of 64 such letters, a1 first. Throws std::logic_error for another number of letters, too.
Placement shown_pieces(std::string_view letters);

/// The pieces by side and square in words, for a screen reader:
/// "White: king e1, queen d1, rooks a1, h1. Black: king e8."
/// From the king down to the pawns, as one reads out a position.
std::string describe_pieces(const Placement& pieces);

}  // namespace velmora
