#pragma once

#include <cstdint>

#include "chess/moves/position.h"
#include "game/gui_book.h"
#include "tournament/tournament.h"

namespace velmora {

/// Plays the opening of game `game_number` (from 1) onto `position`, which is put to its start first. With
/// both colours every opening is played twice in a row.
/// A random opening can't be worked out from the number of the game, so the second game of a pair asks for
/// the one that was played last.
void play_opening(GuiBook& book, ChessPosition& position, const Tournament& tournament,
                  std::int32_t game_number);

}  // namespace velmora
