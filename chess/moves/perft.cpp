#include "chess/moves/perft.h"

#include "chess/moves/move_generator.h"
#include "chess/moves/move_list.h"

namespace velmora {

template <Leaves leaves>
std::uint64_t perft(ChessPosition& position, int depth) {
    if (depth < 1) return 1;
    MoveList list;
    MoveGenerator::generate_all(position, list);
    if (leaves == Leaves::counted && depth == 1) return list.size();
    std::uint64_t nodes = 0;
    for (const Move& move : list) {
        position.do_move(move);
        nodes += depth == 1 ? 1 : perft<leaves>(position, depth - 1);
        position.undo_move();
    }
    return nodes;
}

template std::uint64_t perft<Leaves::counted>(ChessPosition&, int);
template std::uint64_t perft<Leaves::made>(ChessPosition&, int);

}  // namespace velmora
