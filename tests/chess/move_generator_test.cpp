#include "chess/moves/move_generator.h"

#include <gtest/gtest.h>

#include "chess/moves/legal_moves.h"
#include "tests/support/positions.h"

namespace velmora {
namespace {

using test::position_of;

// The order of the list is fixed, for both colours.
TEST(MoveGenerator, Lists) {
    struct Row {
        const char *name, *fen, *moves;
    };
    for (const Row& row : {
             Row{"start", test::start_fen.c_str(),
                 "b1a3 b1c3 g1f3 g1h3 a2a3 a2a4 b2b3 b2b4 c2c3 c2c4 d2d3 d2d4 e2e3 e2e4 f2f3 f2f4 "
                 "g2g3 g2g4 h2h3 h2h4"},
             {"Black's double step has the lower number", "4k3/7p/8/8/8/8/8/4K3 b - - 0 1",
              "h7h5 h7h6 e8d7 e8e7 e8f7 e8d8 e8f8"},
             {"captured worth first, kinds in order among equals, promotions without capture last",
              "1q2k3/P1b5/1N1B4/8/2R5/8/8/K2Q4 w - - 0 1",
              "a7b8q a7b8r a7b8b a7b8n d6c7 c4c7 a7a8q a7a8r a7a8b a7a8n "
              "d1b1 d1c1 d1e1 d1f1 d1g1 d1h1 d1c2 d1d2 d1e2 d1b3 d1d3 d1f3 d1a4 d1d4 d1g4 d1d5 d1h5 "
              "c4c1 c4c2 c4c3 c4a4 c4b4 c4d4 c4e4 c4f4 c4g4 c4h4 c4c5 c4c6 b6a4 b6d5 b6d7 b6a8 b6c8 "
              "d6h2 d6a3 d6g3 d6b4 d6f4 d6c5 d6e5 d6e7 d6f8 a1b1 a1a2 a1b2"},
             {"en passant counts as a pawn and stands behind the pawn's ordinary captures",
              "4k3/8/3p4/1pP5/8/8/8/4K3 w - b6 0 1", "c5d6 c5b6 c5c6 e1d1 e1f1 e1d2 e1e2 e1f2"},
             {"castling last, a-side first", "4k3/8/8/8/8/8/P6P/R3K2R w KQ - 0 1",
              "a1b1 a1c1 a1d1 h1f1 h1g1 a2a3 a2a4 h2h3 h2h4 e1d1 e1f1 e1d2 e1e2 e1f2 e1c1 e1g1"},
         }) {
        EXPECT_EQ(legal_moves(position_of(row.fen)).to_string(), row.moves) << row.name;
    }
}

TEST(MoveGenerator, CapturesAreTheFirstStage) {
    const ChessPosition position =
        position_of("r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1");
    MoveList captures;
    MoveGenerator::generate_captures(position, captures);
    EXPECT_EQ(captures.to_string(), "e2a6 f3f6 g2h3 d5e6 e5g6 e5d7 e5f7 f3h3");
    MoveList all = legal_moves(position);
    const std::size_t size = all.size();
    MoveGenerator::generate_all(position, all);  // finished lists are left alone
    EXPECT_EQ(all.size(), size);
}

TEST(MoveGenerator, DropsWhatDoesNotFit) {
    const ChessPosition position = position_of("QQQQQQQK/Q6Q/Q6Q/Q6Q/Q6Q/Q6Q/Q6Q/kQQQQQQQ w - - 0 1");
    EXPECT_EQ(legal_moves(position).size(), 256U);
}

}  // namespace
}  // namespace velmora
