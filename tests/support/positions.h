#pragma once

#include <sstream>
#include <string>

#include "chess/moves/position.h"

namespace velmora::test {

inline const std::string start_fen = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";

/// The position of a FEN behind moves in coordinate form; whether these are legal is not asked.
inline ChessPosition position_of(const std::string& fen, const std::string& moves = {}) {
    ChessPosition position;
    position.fen(fen);
    std::istringstream words(moves);
    for (std::string move; words >> move;) position.do_move(position.convert_to_move(move));
    return position;
}

}  // namespace velmora::test
