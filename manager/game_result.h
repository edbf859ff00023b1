#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "chess/board/move.h"
#include "chess/moves/position.h"

namespace velmora {

/// What ended a game, as a room of the referee reports it: nothing while the game goes on, else the result
/// string, where `by_the_rules` means that result() names it.
///
/// A result string is a PGN result token, a blank and a comment in braces, "1-0 {White mates}".
using GameEnd = std::optional<std::string>;

inline const std::string by_the_rules;

/// The result while the game goes on.
inline const std::string game_goes_on = "*";

/// The result of the position by the rules of the game, "*" when the game goes on.
std::string result(const ChessPosition& position);

/// Whether a match game is called a draw: one equal piece on each side and nothing happened for six plies.
bool is_adjudicated_draw(const ChessPosition& position);

/// Whether neither side can mate with what is left: at most one minor piece each, and no bishops on squares
/// of opposite colour.
bool is_insufficient_material(const ChessPosition& position);

/// The generated move that `move` stands for; the empty move when it isn't legal.
Move legal_move(const ChessPosition& position, Move move);

/// Plays `move` when it is legal and tells whether it was. Everything that comes from outside goes through
/// here: an illegal move would corrupt the position.
bool play_if_legal(ChessPosition& position, Move move);

/// A move in coordinate form, the empty move when it can't be read. It need not be legal.
Move parse_move(const ChessPosition& position, std::string_view text);

/// "0-1 {reason}" when White loses, "1-0 {reason}" when Black does. The reason may hold an engine's words, of
/// which nothing ends the comment.
std::string loss_of(bool white, std::string_view reason);

}  // namespace velmora
