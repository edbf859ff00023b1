#include "chess/board/move.h"

#include <sstream>

#include <gtest/gtest.h>

#include "chess/moves/move_list.h"

namespace velmora {
namespace {

Move move_of(const char* from, const char* to, MoveCode code, std::uint32_t piece,
             std::uint32_t capture = 0) {
    return {Square(from), Square(to), code, Piece(piece), Piece(capture)};
}

TEST(Move, Layout) {
    Move move = move_of("e7", "d8", MoveCode::promo_knight, 1, 13);
    EXPECT_EQ(move.word(), 59U | 52U << 6 | 5U << 12 | 13U << 16 | 1U << 20 | 14U << 24);
    move.set_check(true);
    move.set_code(MoveCode::promo_queen);
    EXPECT_TRUE(move.check());
    move.set_check(false);
    EXPECT_EQ(move, move_of("e7", "d8", MoveCode::promo_queen, 1, 13));
}

TEST(Move, EqualityLooksAtTheMoveAndItsCheckBit) {
    const Move move = move_of("g1", "f3", MoveCode::normal_move, 2);
    Move other = move;
    other.set_xcode(XCode::killer);
    other.set_score(5);
    EXPECT_EQ(other, move);
    other.set_check(true);
    EXPECT_NE(other, move);
    EXPECT_TRUE(other.same_move(move));
}

TEST(Move, CoordinateText) {
    struct Row {
        Move move;
        const char *classic, *chess960;
    };
    const MoveCode castling = MoveCode::castling;
    for (const Row& row : {Row{{}, "0000", "0000"},
                           {move_of("e7", "e8", MoveCode::promo_queen, 1), "e7e8q", "e7e8q"},
                           {move_of("e2", "e1", MoveCode::promo_knight, 9), "e2e1n", "e2e1n"},
                           {move_of("e1", "h1", MoveCode::normal_move, 4), "e1h1", "e1h1"},
                           {move_of("e1", "h1", castling, 6), "e1g1", "e1h1"},
                           {move_of("e8", "a8", castling, 14), "e8c8", "e8a8"},
                           {move_of("e1", "g1", castling, 6), "e1g1", "e1g1"},
                           {move_of("f1", "h1", castling, 6), "f1h1", "f1h1"}}) {
        EXPECT_EQ((std::ostringstream() << row.move).str(), row.classic);
        EXPECT_EQ(row.move.to_string(false), row.classic);
        EXPECT_EQ(row.move.to_string(true), row.chess960);
    }
    EXPECT_EQ(Move().from(), no_square);
}

TEST(Move, Dump) {
    Move move = move_of("e5", "d6", MoveCode::en_passant, 1, 9);
    EXPECT_EQ(move.dump(),
              "from:e5  to:d6  code:en_passant  piece:white pawn  capture:black pawn  check:false   "
              "xcode:xnormal_move");
    move.set_check(true);
    move.set_xcode(static_cast<XCode>(200));
    EXPECT_EQ(move.dump(),
              "from:e5  to:d6  code:en_passant  piece:white pawn  capture:black pawn  check:true   xcode:");
}

class MoveListTest : public ::testing::Test {
protected:
    MoveListTest() {
        for (const Move& move : {a, b, c}) list.push_back(move);
    }
    const Move a = move_of("a2", "a3", MoveCode::normal_move, 1);
    const Move b = move_of("b2", "b3", MoveCode::normal_move, 1);
    const Move c = move_of("c2", "c3", MoveCode::normal_move, 1);
    MoveList list;
};

TEST_F(MoveListTest, Edits) {
    EXPECT_EQ(list.to_string(), "a2a3 b2b3 c2c3");
    list.to_front(c);
    EXPECT_EQ(list.to_string(), "c2c3 a2a3 b2b3");
    list.remove(a);
    EXPECT_EQ(list.to_string(), "c2c3 b2b3");
    const MoveList copy(list);
    EXPECT_TRUE(copy == list);
    list.remove(a);
    EXPECT_TRUE(copy == list);
    list.clear();
    EXPECT_EQ(list.to_string(), "");
    EXPECT_FALSE(copy == list);
}

TEST_F(MoveListTest, NextHandsOutTheBestFirst) {
    list[1].set_score(7);
    list[2].set_xcode(XCode::good_capture);
    EXPECT_EQ(list.next(), c);
    EXPECT_EQ(list.next(), b);
    EXPECT_EQ(list.next(), a);
    EXPECT_TRUE(list.next().empty());
}

}  // namespace
}  // namespace velmora
