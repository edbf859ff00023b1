#pragma once

#include <string_view>

#include "chess/board/move.h"
#include "chess/moves/position.h"

namespace velmora {

/// The legal move that a word of movetext names in `position`; the empty move when it names none or several.
/// The check bit is not set.
///
/// Takes algebraic texts as files have them: with or without "x", "=", "-" and marks of check, castling with
/// zeros, long forms such as "Ng1-f3" and "e7e8q". Beside read_san(), which keeps to one form and answers
/// with a Move that is still to be looked up among the legal ones: a collection has a hundred million moves,
/// and here the origin is found and its legality told in one go. REQUIRES: both kings are on the board.
Move resolve_san(const ChessPosition& position, std::string_view word);

}  // namespace velmora
