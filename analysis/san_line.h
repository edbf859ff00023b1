#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "chess/board/move.h"
#include "chess/moves/position.h"

namespace velmora {

/// A move of a line as it is written and as it is made.
struct LineMove {
    std::string san;
    Move move;
};

/// Reads an engine's line from the position in which it begins, each word in coordinates ("e7e8q") or
/// algebraic, up to `limit` moves.
///
/// It ends ahead of the first word that is no legal move: an engine's line may go on behind what it has
/// found out, and late lines belong to a position that is gone.
std::vector<LineMove> read_line(const ChessPosition& start, std::span<const std::string> words,
                                std::size_t limit = 64);

/// The position behind the first `count` moves of a line.
ChessPosition position_behind(const ChessPosition& start, std::span<const LineMove> line, std::size_t count);

}  // namespace velmora
