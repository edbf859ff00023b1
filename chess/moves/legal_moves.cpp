#include "chess/moves/legal_moves.h"

#include "chess/board/check_test.h"
#include "chess/moves/move_generator.h"
#include "chess/moves/move_legality.h"

namespace velmora {

MoveList legal_moves(const ChessPosition& position) {
    MoveList list;
    MoveGenerator::generate_all(position, list);
    return list;
}

std::optional<Move> find_legal(const ChessPosition& position, Move move) {
    // Nearly all moves that come from outside are told without a list.
    if (move.code() == MoveCode::normal_move && position.white_king().on_board() &&
        position.black_king().on_board()) {
        const Square from = move.from();
        const Square to = move.to();
        if (!is_legal_normal_move(position, from, to)) return std::nullopt;
        Move legal(from, to, MoveCode::normal_move, position.piece_on(from), position.piece_on(to));
        legal.set_check(gives_check(position.board(), legal));
        return legal;
    }
    MoveList list;
    MoveGenerator::generate_all(position, list);
    for (const Move& legal : list) {
        if (legal.same_move(move)) return legal;
    }
    return std::nullopt;
}

bool has_legal_move(const ChessPosition& position) {
    MoveList list;
    MoveGenerator::generate_all(position, list);
    return !list.empty();
}

}  // namespace velmora
