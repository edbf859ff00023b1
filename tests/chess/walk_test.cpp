// Random games with fixed seeds, in which everything that can be known twice is compared at every move.

#include <random>
#include <set>
#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include "chess/moves/legal_moves.h"
#include "chess/moves/move_generator.h"
#include "chess/moves/position.h"
#include "chess/notation/san_move.h"
#include "tests/chess/mailbox.h"

namespace velmora {
namespace {

using test::Mailbox;

/// What its FEN says about a position, as far as it is kept up to date from move to move.
auto state_of(const ChessPosition& position) {
    return std::tuple(position.fen(), position.key(), position.pawn_key(), position.material().counts(),
                      position.material().phase(), position.checkers());
}

/// What depends on the moves before.
auto history_of(const ChessPosition& position) {
    return std::tuple(position.material().key(), position.is_repetition(2), position.moves());
}

void expect_equals_mailbox(const ChessPosition& position, const MoveList& list) {
    const Mailbox mailbox(position.fen());
    std::multiset<Mailbox::SlowMove> moves;
    for (const Move& move : list) {
        moves.emplace(move.from().value(), move.to().value(), static_cast<int>(move.code()), move.check());
    }
    EXPECT_EQ(moves, mailbox.legal_moves());
    EXPECT_EQ(position.in_check(), mailbox.in_check());
    for (const Side side : {Side::white, Side::black}) {
        Bitboard attacked;
        for (Square square(0); square.on_board(); ++square) {
            const Bitboard attackers(mailbox.attackers(square.value(), side == Side::white));
            EXPECT_EQ(position.attackers(square, side), attackers);
            for (const Square from : attackers.squares()) {
                EXPECT_TRUE(position.maps().attacks_from(from).contains(square));
            }
            if (attackers.any()) attacked.set(square);
        }
        EXPECT_EQ(position.maps().attacks(side), attacked);
    }
}

void expect_texts_come_back(const ChessPosition& position, const MoveList& list) {
    std::set<std::string> texts;
    for (const Move& move : list) {
        for (const bool chess960 : {false, true}) {
            EXPECT_EQ(position.convert_to_move(move.to_string(chess960)), move) << move.dump();
        }
        const std::string san = SanMove(position, move).san();
        EXPECT_TRUE(texts.insert(san).second) << san;
        EXPECT_EQ(SanMove(position, std::string_view(san)), move) << san;
    }
}

void expect_order(const MoveList& list) {
    std::int32_t last_worth = 10'000;
    bool quiet = false;
    for (const Move& move : list) {
        const bool first_stage = !move.capture().empty() || is_promotion(move.code());
        EXPECT_FALSE(quiet && first_stage);
        quiet = !first_stage;
        EXPECT_TRUE(quiet || move.capture().abs_value() <= last_worth);
        last_worth = move.capture().abs_value();
        EXPECT_EQ(move.xcode(), XCode::xnormal_move);
    }
}

/// find_legal() against the list, for every pair of squares.
void expect_found(const ChessPosition& position, const MoveList& list) {
    std::set<std::pair<int, int>> listed;  // the normal ones
    for (const Move& move : list) {
        if (move.code() == MoveCode::normal_move) listed.emplace(move.from().value(), move.to().value());
        const auto found = find_legal(position, move);
        EXPECT_TRUE(found && *found == move && found->xcode() == move.xcode()) << move.dump();
    }
    for (int from = 0; from < 64; ++from) {
        for (int to = 0; to < 64; ++to) {
            const Move move(Square(from), Square(to), MoveCode::normal_move, no_piece, no_piece);
            EXPECT_FALSE(!listed.contains({from, to}) && find_legal(position, move)) << move.to_string(false);
        }
    }
}

enum class Depth { incremental, everything };

void walk(ChessPosition& position, std::minstd_rand& random, int plies, Depth depth) {
    for (int ply = 0; ply < plies && !::testing::Test::HasFailure(); ++ply) {
        SCOPED_TRACE(position.fen());
        const MoveList list = legal_moves(position);
        EXPECT_EQ(position.is_mate(), position.in_check() && list.empty());
        if (depth == Depth::everything) {
            expect_equals_mailbox(position, list);
            expect_texts_come_back(position, list);
            expect_order(list);
            if (ply % 8 == 0) expect_found(position, list);
        }
        if (list.empty()) return;
        const Move move = list[random() % list.size()];
        const ChessPosition before(position);
        const auto state = state_of(position);
        const auto history = history_of(position);
        position.do_move(move);
        EXPECT_EQ(position.in_check(), move.check()) << move.dump();
        ChessPosition scratch;
        scratch.fen(position.fen());
        EXPECT_TRUE(scratch == position);
        EXPECT_EQ(state_of(scratch), state_of(position));
        position.undo_move();
        EXPECT_TRUE(before == position);
        EXPECT_EQ(state, state_of(position));
        EXPECT_EQ(history, history_of(position));
        position.do_move(move);
    }
    while (!position.moves().empty()) position.undo_move();
    EXPECT_EQ(position.fen(), position.start_fen());
}

class Walk : public ::testing::TestWithParam<Depth> {
protected:
    bool everything() const { return GetParam() == Depth::everything; }
};

TEST_P(Walk, ClassicGames) {
    std::minstd_rand random(20);
    ChessPosition position;
    for (int game = 0; game < (everything() ? 10 : 1000) && !HasFailure(); ++game) {
        position.new_game();
        walk(position, random, everything() ? 80 : 10 + game % 50, GetParam());
    }
}

TEST_P(Walk, Chess960Games) {
    std::minstd_rand random(960);
    ChessPosition position;
    for (std::uint32_t game = 0; game < (everything() ? 15 : 960) && !HasFailure(); ++game) {
        position.new_chess960(everything() ? game * 61 : game);
        walk(position, random, everything() ? 50 : 25, GetParam());
    }
}

TEST_P(Walk, SharpPositions) {
    std::minstd_rand random(5);
    ChessPosition position;
    for (const char* fen :
         {"r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1",
          "8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w - - 0 1", "n1n5/PPPk4/8/8/8/8/4Kppp/5N1N b - - 0 1",
          "4k3/8/8/8/1b6/8/3P4/r3K2R w K - 0 1", "1rk3r1/8/8/8/8/8/8/1RK3R1 w BGbg - 0 1",
          "8/PPPPPPPP/8/2k2K2/8/8/pppppppp/8 w - - 0 1", "QQQQQQQ1/8/8/3k4/8/8/1K6/qqqqqqqq b - - 0 1"}) {
        for (int game = 0; game < (everything() ? 4 : 40) && !HasFailure(); ++game) {
            position.fen(fen);
            walk(position, random, 30, GetParam());
        }
    }
}

// Where rules meet, a few moves from each.
TEST_P(Walk, RareCases) {
    std::minstd_rand random(9);
    ChessPosition position;
    for (const char* fen :
         {// Castling: an attacked square on the king's way, a rook that is attacked or passes one, check,
          // a piece between, rights without their rook or king, targets that king or rook stands on, and
          // a rook that shields the target.
          "4kr2/8/8/8/8/8/8/4K2R w K - 0 1", "4k2r/8/8/8/8/8/8/4K2R w K - 0 1",
          "1r2k3/8/8/8/8/8/8/R3K3 w Q - 0 1", "4r1k1/8/8/8/8/8/8/R3K3 w Q - 0 1",
          "4k3/8/8/8/8/8/8/RN2K3 w Q - 0 1", "4k3/8/8/8/8/8/8/4K3 w BG - 0 1",
          "4k3/8/8/8/8/8/4K3/R6R w KQ - 0 1", "4k3/8/8/8/8/8/8/5KR1 w G - 0 1",
          "4k3/8/8/8/8/8/8/rR1K4 w B - 0 1", "4k3/8/8/8/8/8/8/2KR4 w D - 0 1",
          // En passant: both pawns leave the king's rank, a pin on the diagonal of the capture, the pawn
          // that gives check, a target that is occupied or has no pawn behind it.
          "4k3/8/8/K2pP2r/8/8/8/8 w - d6 0 1", "8/6k1/8/8/3pP3/2B5/8/K7 b - e3 0 1",
          "8/8/8/3pP3/2K4k/8/8/8 w - d6 0 1", "4k3/8/3n4/3pP3/8/8/8/4K3 w - d6 0 1",
          "4k3/8/8/4P3/8/8/8/4K3 w - d6 0 1",
          // Mates and what looks like one: smothered, stalemate, the line behind the king is free when a
          // pawn checks, en passant is the only way out, double check.
          "6rk/5Npp/8/8/8/8/8/K7 b - - 0 1", "7k/5Q2/6K1/8/8/8/8/8 b - - 0 1",
          "1rb5/pk6/p1P5/3N4/Q7/8/8/4K3 b - - 0 1", "8/8/8/2k5/3Pp3/8/8/KQ4R1 b - d3 0 1",
          "4k3/3ppN2/8/8/8/8/4R3/K2Q4 b - - 0 1",
          // The king of the side that is not to move could be taken.
          "4k3/8/8/8/8/8/P3R3/K7 w - - 0 1"}) {
        position.fen(fen);
        walk(position, random, 4, GetParam());
    }
}

INSTANTIATE_TEST_SUITE_P(Chess, Walk, ::testing::Values(Depth::incremental, Depth::everything),
                         [](const auto& depth) {
                             return depth.param == Depth::everything ? "AgainstMailbox" : "Incremental";
                         });

}  // namespace
}  // namespace velmora
