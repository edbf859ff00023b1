#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "chess/moves/position.h"
#include "engine/time/level.h"

/// The texts of the xboard protocol, free of any state.
namespace velmora::xboard {

/// The command that sets the time control.
/// "level MOVES BASE INCREMENT" with the base in minutes or minutes:seconds and the increment in seconds,
/// "sd" for a depth, "st" for the time of a move.
std::string level_command(const Level& level);

/// "e1g1" and its like, or SAN when `san`, from any of the spellings of castling; nothing else is changed.
std::string normalised_castling(std::string_view word, bool white_to_move, bool san);

/// The move of a line "My move is: e2e4", in which old engines announce it; nothing for other lines.
std::optional<std::string_view> old_style_move(std::string_view line);

/// The thinking output "depth score time nodes moves" as an "info" line. The time stays in hundredths of a
/// second, as xboard engines give it.
/// Score in hundredths of a pawn, as in UCI; the moves at the end are the engine's own text and stay as
/// they are.
std::string thinking_as_info(std::string_view line);

/// The commands of the edit mode that set up the board of a position, "edit" and "." included.
/// "#" clears the board, pieces are named with their square ("Ke1"), "c" turns to Black's. The mode knows
/// nothing of the side to move, nor of castling rights, which the engine makes up from where the pieces
/// stand.
std::vector<std::string> edit_commands(const ChessPosition& position);

}  // namespace velmora::xboard
