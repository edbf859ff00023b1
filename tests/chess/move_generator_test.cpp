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
             {"a checked king: take, stand between or step off the line", "4k3/8/8/8/Rb6/8/8/1N2K3 w - - 0 1",
              "a4b4 b1d2 b1c3 e1d1 e1f1 e1e2 e1f2"},
             {"double check: the king alone", "4k3/8/8/8/4r3/3n4/2Q5/4K1R1 w - - 0 1", "e1d1 e1f1 e1d2"},
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
    EXPECT_FALSE(captures.generated());
    MoveList all = legal_moves(position);
    EXPECT_TRUE(all.generated());
    const std::size_t size = all.size();
    MoveGenerator::generate_all(position, all);  // finished lists are left alone
    EXPECT_EQ(all.size(), size);
}

TEST(MoveGenerator, CastlingAndEnPassant) {
    struct Row {
        const char *name, *fen;
        const char* move;  // coordinate text, Chess960 form
        bool legal;
    };
    for (const Row& row : {
             Row{"crossed square attacked", "4kr2/8/8/8/8/8/8/4K2R w K - 0 1", "e1h1", false},
             {"rook attacked", "4k2r/8/8/8/8/8/8/4K2R w K - 0 1", "e1h1", true},
             {"rook's way attacked", "1r2k3/8/8/8/8/8/8/R3K3 w Q - 0 1", "e1a1", true},
             {"in check", "4r1k1/8/8/8/8/8/8/R3K3 w Q - 0 1", "e1a1", false},
             {"piece between", "4k3/8/8/8/8/8/8/RN2K3 w Q - 0 1", "e1a1", false},
             {"no right", "4k3/8/8/8/8/8/8/R3K3 w - - 0 1", "e1a1", false},
             {"right without its rook", "4k3/8/8/8/8/8/8/4K3 w KQ - 0 1", "e1b1", false},
             {"right without the king on its rank", "4k3/8/8/8/8/8/4K3/R6R w AH - 0 1", "e2h1", false},
             {"rook on the king's target", "4k3/8/8/8/8/8/8/5KR1 w G - 0 1", "f1g1", true},
             {"the rook shields the target", "4k3/8/8/8/8/8/8/rR1K4 w B - 0 1", "d1b1", false},
             {"the king stands on its target", "4k3/8/8/8/8/8/8/2KR4 w D - 0 1", "c1d1", true},
             {"en passant", "4k3/8/8/3pP3/8/8/8/4K3 w - d6 0 1", "e5d6", true},
             {"both pawns leave the king's rank", "4k3/8/8/K2pP2r/8/8/8/8 w - d6 0 1", "e5d6", false},
             {"pinned on the diagonal of the capture", "8/6k1/8/8/3pP3/2B5/8/K7 b - e3 0 1", "d4e3", false},
             {"the checking pawn is taken", "8/8/8/3pP3/2K4k/8/8/8 w - d6 0 1", "e5d6", true},
             {"target occupied", "4k3/8/3n4/3pP3/8/8/8/4K3 w - d6 0 1", "e5d6", true},
             {"no pawn behind the target", "4k3/8/8/4P3/8/8/8/4K3 w - d6 0 1", "e5d6", false},
         }) {
        const ChessPosition position = position_of(row.fen);
        bool found = false;
        for (const Move& move : legal_moves(position)) found |= move.to_string(true) == row.move;
        EXPECT_EQ(found, row.legal) << row.name;
    }
    const ChessPosition occupied = position_of("4k3/8/3n4/3pP3/8/8/8/4K3 w - d6 0 1");
    EXPECT_EQ(occupied.convert_to_move("e5d6").code(), MoveCode::normal_move);
}

TEST(MoveGenerator, DropsWhatDoesNotFit) {
    const ChessPosition position = position_of("QQQQQQQK/Q6Q/Q6Q/Q6Q/Q6Q/Q6Q/Q6Q/kQQQQQQQ w - - 0 1");
    EXPECT_EQ(legal_moves(position).size(), 256U);
}

TEST(MoveGenerator, CheckBitsWhenTheEnemyKingCouldBeTaken) {
    const ChessPosition position = position_of("4k3/8/8/8/8/8/P3R3/K7 w - - 0 1");
    for (const Move& move : legal_moves(position)) {
        ChessPosition after(position);
        after.do_move(move);
        EXPECT_EQ(move.check(), after.in_check()) << move;
    }
}

TEST(MoveGenerator, Mate) {
    struct Row {
        const char *name, *fen;
        bool mate;
    };
    for (const Row& row : {
             Row{"fool's mate", "rnb1kbnr/pppp1ppp/8/4p3/6Pq/5P2/PPPPP2P/RNBQKBNR w KQkq - 1 3", true},
             {"not in check", "7k/5Q2/8/8/8/8/8/K7 b - - 0 1", false},
             {"stalemate", "7k/5Q2/6K1/8/8/8/8/8 b - - 0 1", false},
             {"the line behind the king is free when a pawn checks", "1rb5/pk6/p1P5/3N4/Q7/8/8/4K3 b - - 0 1",
              false},
             {"smothered", "6rk/5Npp/8/8/8/8/8/K7 b - - 0 1", true},
             {"en passant is the only way out", "8/8/8/2k5/3Pp3/8/8/KQ4R1 b - d3 0 1", false},
             {"double check", "4k3/3ppN2/8/8/8/8/4R3/K2Q4 b - - 0 1", false},
         }) {
        EXPECT_EQ(position_of(row.fen).is_mate(), row.mate) << row.name;
    }
}

}  // namespace
}  // namespace velmora
