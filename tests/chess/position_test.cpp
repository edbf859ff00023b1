#include "chess/moves/position.h"

#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "chess/moves/legal_moves.h"
#include "tests/support/positions.h"
#include "tests/support/thrown_text.h"

namespace velmora {
namespace {

using test::position_of;
using test::thrown_text;
const std::string start = test::start_fen;

TEST(Position, KeysAndFens) {
    const struct {
        std::uint64_t key;
        const char *moves, *fen;
    } rows[] = {
        // The keys are those of the Polyglot format's own examples.
        {0x463B96181691FC9C, "", start.c_str()},
        {0x823C9B50FD114196, "e2e4", "rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq - 0 1"},
        {0x0756B94461C50FB0, "e2e4 d7d5", "rnbqkbnr/ppp1pppp/8/3p4/4P3/8/PPPP1PPP/RNBQKBNR w KQkq - 0 2"},
        {0x662FAFB965DB29D4, "e2e4 d7d5 e4e5", "rnbqkbnr/ppp1pppp/8/3pP3/8/8/PPPP1PPP/RNBQKBNR b KQkq - 0 2"},
        {0x22A48B5A8E47FF78, "e2e4 d7d5 e4e5 f7f5",
         "rnbqkbnr/ppp1p1pp/8/3pPp2/8/8/PPPP1PPP/RNBQKBNR w KQkq f6 0 3"},
        {0x652A607CA3F242C1, "e2e4 d7d5 e4e5 f7f5 e1e2",
         "rnbqkbnr/ppp1p1pp/8/3pPp2/8/8/PPPPKPPP/RNBQ1BNR b kq - 1 3"},
        {0x00FDD303C946BDD9, "e2e4 d7d5 e4e5 f7f5 e1e2 e8f7",
         "rnbq1bnr/ppp1pkpp/8/3pPp2/8/8/PPPPKPPP/RNBQ1BNR w - - 2 4"},
        {0x3C8123EA7B067637, "a2a4 b7b5 h2h4 b5b4 c2c4",
         "rnbqkbnr/p1pppppp/8/8/PpP4P/8/1P1PPPP1/RNBQKBNR b KQkq c3 0 3"},
        {0x5C3F9B829B279560, "a2a4 b7b5 h2h4 b5b4 c2c4 b4c3 a1a3",
         "rnbqkbnr/p1pppppp/8/8/P6P/R1p5/1P1PPPP1/1NBQKBNR b Kkq - 1 4"},
    };
    for (const auto& row : rows) {
        const ChessPosition position = position_of(start, row.moves);
        EXPECT_EQ(position.key(), row.key) << row.fen;
        EXPECT_EQ(position.fen(), row.fen);
    }
}

TEST(Position, RightsAndEnPassantAfterMoves) {
    struct Row {
        const char *name, *fen, *move, *after;
    };
    for (const Row& row : {
             Row{"a captured rook", "4k2r/8/8/8/8/8/8/B3K3 w k - 5 1", "a1h8",
                 "4k2B/8/8/8/8/8/8/4K3 b - - 0 1"},
             {"a rook that leaves", "r3k2r/8/8/8/8/8/8/4K3 b kq - 0 1", "a8b8",
              "1r2k2r/8/8/8/8/8/8/4K3 w k - 1 2"},
             {"castling short", "r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1", "e1g1",
              "r3k2r/8/8/8/8/8/8/R4RK1 b kq - 1 1"},
             {"Chess960 castling over its own squares", "4k3/8/8/8/8/8/8/5KR1 w G - 0 1", "f1g1",
              "4k3/8/8/8/8/8/8/5RK1 b - - 1 1"},
             {"promotion with capture of a rook", "r3k3/1P6/8/8/8/8/8/4K3 w q - 0 1", "b7a8n",
              "N3k3/8/8/8/8/8/8/4K3 b - - 0 1"},
             // The look beside the pawn has no edge.
             {"from the a-file to the h-file", "4k3/8/8/8/8/7p/P7/4K3 w - - 0 1", "a2a4",
              "4k3/8/8/8/P7/7p/8/4K3 b - a3 0 1"},
             {"from the h-file to the a-file", "4k3/7p/P7/8/8/8/8/4K3 b - - 0 1", "h7h5",
              "4k3/8/P7/7p/8/8/8/4K3 w - h6 0 2"},
         }) {
        EXPECT_EQ(position_of(row.fen, row.move).fen(), row.after) << row.name;
    }
}

TEST(Position, PassingTheTurn) {
    ChessPosition position = position_of(start, "e2e4");
    position.do_move(Move());
    EXPECT_EQ(position.fen(), "rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR w KQkq - 1 2");
    position.undo_move();
    EXPECT_EQ(position.key(), 0x823C9B50FD114196);
    EXPECT_EQ(position.moves_text(), "e2e4");
    position.undo_move();
    position.undo_move();  // nothing to take back
    EXPECT_EQ(position.fen(), start);
}

TEST(Position, Repetition) {
    // A pawn's move puts a mark where the search for a repetition ends; taken back, the mark goes with it.
    ChessPosition position = position_of(start, "g1f3 g8f6 f3g1 f6g8 e2e4");
    EXPECT_FALSE(position.is_repetition(2));
    position.undo_move();
    EXPECT_TRUE(position.is_repetition(2));
    EXPECT_FALSE(position.is_repetition(3));

    // The same pieces with other rights are another position.
    position = position_of("4k3/8/8/8/8/8/8/4K2R w K - 98 80", "h1g1 e8d8 g1h1");
    position.do_move(position.convert_to_move("d8e8"));
    EXPECT_FALSE(position.is_repetition(2));
}

TEST(Position, CopiesAreIndependent) {
    ChessPosition position = position_of(start, "e2e4");
    const ChessPosition copy(position);
    EXPECT_NE(copy.id(), position.id());
    const std::int32_t id = position.id();
    position.undo_move();
    position.do_move(position.convert_to_move("d2d4"));
    EXPECT_EQ(copy.moves_text(), "e2e4");
    position = copy;
    EXPECT_EQ(position.id(), id);
    EXPECT_TRUE(copy == position);
}

TEST(Position, EditsReachTheBoardAlone) {
    ChessPosition position;
    position.new_game();
    const std::uint64_t key = position.key();
    position.remove_piece(Square("e1"), Piece(6));
    position.add_piece(Square("e4"), Piece(13));
    EXPECT_EQ(position.fen(), "rnbqkbnr/pppppppp/8/8/4q3/8/PPPPPPPP/RNBQ1BNR w KQkq - 0 1");
    EXPECT_EQ(position.key(), key);
    EXPECT_EQ(position.white_king(), Square("e1"));
    EXPECT_TRUE(position.maps().attacks_from(Square("e4")).empty());
    position.flip_side();
    EXPECT_EQ(position.side(), 0);
}

TEST(Position, DumpNamesThePieces) {
    const std::string dump = position_of("4k3/8/8/8/4r3/8/4N3/4K3 w - - 0 1").dump();
    EXPECT_NE(dump.find("side to move: white\nwhite pawn:\nwhite knight: e2\n"), std::string::npos);
    EXPECT_NE(dump.find("pinned pieces: 0000000000001000\n"), std::string::npos);
}

TEST(Material, CountsAndSignature) {
    const struct {
        const char *fen, *moves;
        std::uint64_t counts;
        const char* signature;
        int phase;
    } rows[] = {
        {start.c_str(), "", 0x0001222800012228, "KQRRBBNNPPPPPPPPkqrrbbnnpppppppp", 0},
        {"4k3/8/8/8/8/8/8/4K3 w - - 0 1", "", 0, "Kk", 1024},
        {"1n2k3/P7/8/8/8/8/7p/4K1N1 w - - 0 1", "a7b8r h2g1n", 0x0000100000000010, "KRkn", 892},
    };
    for (const auto& row : rows) {
        const ChessPosition position = position_of(row.fen, row.moves);
        EXPECT_EQ(position.material().counts(), row.counts);
        EXPECT_EQ(position.material().signature(), row.signature);
        EXPECT_EQ(position.material().phase(), row.phase);
    }
}

TEST(Material, Operations) {
    // Counting XORs count * constant, moves XOR the constants themselves.
    EXPECT_EQ(position_of("4k3/P7/8/8/8/8/P7/4K3 w - - 0 1", "a7a8r").material().key(),
              2 * 0xD091BB5CU ^ 0x0552A425U);
    Material material;
    material.set(Piece(1), 3);
    material.add(Piece(13));
    EXPECT_EQ(material.white_pawns(), 3);
    EXPECT_EQ(material.black_queens(), 1);
    EXPECT_TRUE(material.black_more() && !material.white_more() && !material.equal());
    material.swap_colours();
    EXPECT_EQ(material.signature(), "KQkppp");
    material.remove(Piece(5));
    EXPECT_EQ(material.signature(), "Kkppp");
    material.set(Piece(10), 40);  // does not spill into another kind
    EXPECT_EQ(material.black_knights(), 15);
    EXPECT_EQ(material.black_bishops(), 0);
}

TEST(ConvertToMove, Faults) {
    ChessPosition position;
    position.new_game();
    const std::pair<std::string, const char*> rows[] = {{"", "  invalid size"},
                                                        {"e7e8qq", "  invalid size"},
                                                        {"e9e4", "  invalid 'from' square"},
                                                        {"e2e0", "  invalid 'to' square"},
                                                        {"e2e4k", "  invalid promotion piece"},
                                                        {"e4e5", "  no piece on 'from' square"}};
    for (const auto& [text, suffix] : rows) {
        EXPECT_EQ(thrown_text([&, word = text] { position.convert_to_move(word); }),
                  "m_cp.convert_to_move(const string& " + text + ")" + suffix);
    }
}

TEST(ConvertToMove, WhatIsNoLegalMove) {
    struct Row {
        const char *name, *fen, *text;
        const char* expected;  // the dump without xcode
    };
    for (const Row& row : {
             Row{"no rook, no castling", "4k3/8/8/8/8/8/8/4K3 w - - 0 1", "e1g1",
                 "from:e1  to:g1  code:normal_move  piece:white king  capture:no piece  check:false"},
             {"occupied target, no castling", "4k3/8/8/8/8/8/8/4K1nR w K - 0 1", "e1g1",
              "from:e1  to:g1  code:normal_move  piece:white king  capture:black knight  check:false"},
             {"illegal moves pass, without check bit", "4k3/8/8/8/8/8/8/R3K3 w - - 0 1", "a1e8",
              "from:a1  to:e8  code:normal_move  piece:white rook  capture:black king  check:false"},
         }) {
        const std::string dump = position_of(row.fen).convert_to_move(row.text).dump();
        EXPECT_EQ(dump.substr(0, dump.find("   xcode")), row.expected) << row.name;
    }
    const ChessPosition position = position_of(start);
    EXPECT_TRUE(position.make_move(Square("e1"), no_square, MoveCode::normal_move).empty());
    EXPECT_TRUE(position.make_move(Square("e2"), Square("d1"), MoveCode::castling).capture().empty());
    EXPECT_FALSE(find_legal(position, position.make_move(Square("e2"), Square("e5"), MoveCode::normal_move)));
}

}  // namespace
}  // namespace velmora
