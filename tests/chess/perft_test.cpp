#include <cstdint>
#include <string>

#include <gtest/gtest.h>

#include "chess/moves/move_generator.h"
#include "tests/support/positions.h"

namespace velmora {
namespace {

std::uint64_t perft(ChessPosition& position, int depth) {
    MoveList list;
    MoveGenerator::generate_all(position, list);
    if (depth == 1) return list.size();
    std::uint64_t nodes = 0;
    for (const Move& move : list) {
        position.do_move(move);
        nodes += perft(position, depth - 1);
        position.undo_move();
    }
    return nodes;
}

TEST(Perft, CountsTheLeaves) {
    const struct {
        std::string fen;
        int depth;
        std::uint64_t nodes;
    } rows[] = {{test::start_fen, 4, 197281},
                {"r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1", 3, 97862},
                {"8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w - - 0 1", 5, 674624},
                {"r3k2r/Pppp1ppp/1b3nbN/nP6/BBP1P3/q4N2/Pp1P2PP/R2Q1RK1 w kq - 0 1", 4, 422333},
                {"rnbq1k1r/pp1Pbppp/2p5/8/2B5/8/PPP1NnPP/RNBQK2R w KQ - 1 8", 3, 62379},
                {"r4rk1/1pp1qppp/p1np1n2/2b1p1B1/2B1P1b1/P1NP1N2/1PP1QPPP/R4RK1 w - - 0 10", 3, 89890}};
    for (const auto& row : rows) {
        ChessPosition position = test::position_of(row.fen);
        EXPECT_EQ(perft(position, row.depth), row.nodes) << row.fen;
        EXPECT_EQ(position.fen(), row.fen);
    }
}

}  // namespace
}  // namespace velmora
