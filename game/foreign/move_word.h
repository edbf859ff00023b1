#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "chess/board/move.h"
#include "chess/moves/position.h"
#include "game/foreign/remark.h"

namespace velmora {

/// A word of the movetext, taken apart as far as can be done without a position.
///
/// Whatever programs and people write is read that can mean one thing only; letters of pieces in other
/// languages are not guessed, since a German "D" and "S" are squares and figures elsewhere.
struct MoveWord {
    std::string move;                  ///< plain ASCII, without signs, check and promotion; empty for none
    char promotion = 0;                ///< 'Q', 'R', 'B', 'N', or 0
    std::uint8_t castling = 0;         ///< 2 to the king's side, 3 to the queen's, 0 for another move
    bool is_null = false;              ///< "--", "Z0", "null"
    std::vector<std::string> glyphs;   ///< "$1", as suffixes or signs
    std::vector<RemarkKind> spelling;  ///< what was read that SAN doesn't have

    /// Whether it can be a move of some position: castling, or a text with a square.
    bool may_be_move() const { return castling != 0 || !move.empty(); }
};

/// Takes a word apart: blanks are not part of it.
MoveWord take_apart(std::string_view word);

/// The legal move that a word names; nothing when there is none or, which `several` then tells, more than
/// one.
std::optional<Move> find_move(const ChessPosition& position, const MoveWord& word, bool& several);

}  // namespace velmora
