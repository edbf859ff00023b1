#pragma once

#include <optional>
#include <string_view>

#include "chess/board/game_outcome.h"
#include "chess/board/move.h"
#include "chess/board/side.h"
#include "chess/moves/position.h"

namespace velmora {

/// What ended a game, as a room of the referee reports it; nothing while the game goes on.
using GameEnd = std::optional<GameOutcome>;

/// The end of the game by its rules.
/// All draws count as soon as they may be claimed: UCI, in whose words all engines answer here, has none
/// for a claim.
GameEnd result(const ChessPosition& position);

/// The draw that a side may claim here: by threefold repetition or the fifty move rule.
GameEnd draw_to_claim(const ChessPosition& position);

/// The end of the game for a side whose flag has fallen: its loss, or a draw where the other has no more than
/// its king.
GameOutcome loss_on_time(const ChessPosition& position, Side side);

/// Whether a match game is called a draw: one equal piece on each side and nothing happened for six plies.
/// Engines would shuffle such an ending for fifty moves, and a tournament has many games to play.
bool is_adjudicated_draw(const ChessPosition& position);

/// Whether what is left is too little for a mate by force: at most one minor piece each, and no bishops on
/// squares of opposite colour. With so little, mates exist with the opponent's help alone; those of
/// opposite bishops are left to be played out.
bool is_insufficient_material(const ChessPosition& position);

/// The generated move that `move` stands for; the empty move when it isn't legal.
Move legal_move(const ChessPosition& position, Move move);

/// Plays `move` when it is legal and tells whether it was. Everything that comes from outside goes through
/// here: an illegal move would corrupt the position.
bool play_if_legal(ChessPosition& position, Move move);

/// A move in coordinate form, the empty move when it can't be read. It need not be legal.
/// Without exceptions: what is read here comes from engines and persons, where nonsense is an ordinary
/// answer.
Move parse_move(const ChessPosition& position, std::string_view text);

/// The loss of a side. The reason may hold an engine's words: they are cleaned, so that nothing in them ends
/// the comment as which the reason goes into the record.
GameOutcome loss_of(Side side, std::string_view reason);

}  // namespace velmora
