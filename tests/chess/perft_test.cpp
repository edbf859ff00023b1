#include <cstdint>
#include <string>

#include <gtest/gtest.h>

#include "chess/move_generator.h"
#include "chess/position.h"

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

struct PerftRow {
    std::string fen;
    int depth;
    std::uint64_t nodes;
};

class Perft : public testing::TestWithParam<PerftRow> {};

TEST_P(Perft, CountsTheLeaves) {
    ChessPosition position;
    position.fen(GetParam().fen);
    EXPECT_EQ(perft(position, GetParam().depth), GetParam().nodes);
    EXPECT_EQ(position.fen(), GetParam().fen);
}

INSTANTIATE_TEST_SUITE_P(
    WellKnown, Perft,
    testing::Values(
        PerftRow{"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1", 4, 197281},
        PerftRow{"r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1", 3, 97862},
        PerftRow{"8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w - - 0 1", 5, 674624},
        PerftRow{"r3k2r/Pppp1ppp/1b3nbN/nP6/BBP1P3/q4N2/Pp1P2PP/R2Q1RK1 w kq - 0 1", 4, 422333},
        PerftRow{"rnbq1k1r/pp1Pbppp/2p5/8/2B5/8/PPP1NnPP/RNBQK2R w KQ - 1 8", 3, 62379},
        PerftRow{"r4rk1/1pp1qppp/p1np1n2/2b1p1B1/2B1P1b1/P1NP1N2/1PP1QPPP/R4RK1 w - - 0 10", 3, 89890}));

}  // namespace
}  // namespace velmora
