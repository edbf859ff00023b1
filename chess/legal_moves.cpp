#include "chess/legal_moves.h"

#include "chess/move_generator.h"

namespace velmora {

MoveList legal_moves(const ChessPosition& position) {
    MoveList list;
    MoveGenerator::generate_all(position, list);
    return list;
}

std::optional<Move> find_legal(const ChessPosition& position, Move move) {
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
