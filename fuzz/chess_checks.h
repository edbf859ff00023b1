#pragma once

#include <cstdlib>
#include <iostream>
#include <string_view>

#include "chess/moves/legal_moves.h"
#include "chess/moves/position.h"

namespace velmora::fuzzing {

/// Ends the program, so that the fuzzer keeps the input.
inline void require(bool condition, std::string_view what, const ChessPosition& position) {
    if (condition) return;
    std::cerr << what << "\nfen " << position.fen() << "\nmoves " << position.moves_text() << '\n';
    std::abort();
}

/// Makes and takes back every legal move of the position and holds what must hold in any position.
inline void check_position(const ChessPosition& position) {
    ChessPosition scratch(position);
    const MoveList moves = legal_moves(position);
    for (const Move& move : moves) {
        scratch.do_move(move);
        require(scratch.in_check() == move.check(), "check bit of " + move.to_string(true), position);
        require(scratch.attackers(scratch.king(position.side_to_move()), scratch.side_to_move()).empty(),
                "own king left attacked by " + move.to_string(true), position);
        scratch.maps();
        scratch.undo_move();
        require(scratch == position && scratch.key() == position.key(), "undo of " + move.to_string(true),
                position);
    }
    require(position.is_mate() == (position.in_check() && moves.empty()), "mate", position);
}

/// Takes the next line off the input.
inline std::string_view take_line(std::string_view& input) {
    const std::size_t end = input.find('\n');
    const std::string_view line = input.substr(0, end);
    input.remove_prefix(end == std::string_view::npos ? input.size() : end + 1);
    return line;
}

/// The position of an input's first line: the start position when the line is no FEN.
inline ChessPosition take_position(std::string_view& input) {
    ChessPosition position;
    position.new_game();
    position.set_fen(take_line(input));
    return position;
}

}  // namespace velmora::fuzzing
