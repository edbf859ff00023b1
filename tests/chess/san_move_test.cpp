#include "chess/notation/san_move.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/support/positions.h"
#include "tests/support/thrown_text.h"

namespace velmora {
namespace {

using test::position_of;
using test::thrown_text;
const std::string start = test::start_fen;

TEST(SanMove, Written) {
    struct Row {
        const char *fen, *move, *san;
    };
    for (const Row& row : {
             Row{start.c_str(), "e2e4", "e4"},
             {"4k3/8/8/3pP3/8/8/8/4K3 w - d6 0 1", "e5d6", "exd6"},
             {"3r4/4P3/8/k7/8/8/8/4K3 w - - 0 1", "e7e8n", "e8=N"},
             {"3r4/4P3/8/k7/8/8/8/4K3 w - - 0 1", "e7d8b", "exd8=B+"},
             {"k7/4P3/1K6/8/8/8/8/8 w - - 0 1", "e7e8q", "e8=Q#"},
             {"4k3/8/8/8/8/8/8/R3K2R w KQ - 0 1", "e1g1", "O-O"},
             {"3k4/8/8/8/8/8/8/R3K2R w KQ - 0 1", "e1c1", "O-O-O+"},
             {"R7/8/8/7k/8/4K3/8/R7 w - - 0 1", "a1a4", "R1a4"},
             {"8/6k1/8/8/8/Q7/8/Q1Q4K w - - 0 1", "a1b2", "Qa1b2+"},
             {"4k3/4r3/8/8/8/2N1N3/8/4K3 w - - 0 1", "c3d5", "Nd5"},  // the other is pinned
             {"4k3/8/8/8/1b6/7R/3R4/4K3 w - - 0 1", "h3d3", "Rd3"},
             {"1rb5/pk6/p7/2PN4/Q7/8/8/4K3 w - - 0 1", "c5c6", "c6+"},  // Ka8 is left
         }) {
        const ChessPosition position = position_of(row.fen);
        const SanMove move(position, position.convert_to_move(row.move));
        EXPECT_EQ(move.san(), row.san) << row.fen;
    }
    const ChessPosition position = position_of("4k3/8/8/8/8/8/8/R3K3 w - - 0 1");
    Move move = position.make_move(Square("a1"), Square("a8"), MoveCode::normal_move);
    EXPECT_EQ(SanMove(position, move).san(), "Ra8");  // no check bit, no suffix
    EXPECT_EQ(SanMove(position, Move()).san(), "");
}

TEST(SanMove, Read) {
    struct Row {
        const char *fen, *san;
        const char* move;  // coordinate text, "+" when the check bit is set
    };
    for (const Row& row : {
             Row{start.c_str(), "Nf3", "g1f3"},
             {start.c_str(), "Ng1f3", "g1f3"},
             {start.c_str(), "N1f3", "g1f3"},
             {start.c_str(), "Nf3#!?! ", "g1f3+"},
             {start.c_str(), "zzze4", "e2e4"},
             {"3r4/4P1k1/8/8/8/8/8/4K3 w - - 0 1", "exd8=N#", "e7d8n+"},
             {"4k3/8/8/8/8/8/8/1K3R2 w - - 0 1", "O-O", "b1f1"},  // rights are not asked
             // Of several candidates pinned ones drop out, or go along their line when all are pinned.
             {"4k3/4r3/8/8/8/2N1N3/8/4K3 w - - 0 1", "Nd5", "c3d5"},
             {"4r2k/8/8/8/q3R3/8/2R5/4K3 w - - 0 1", "Re2", "c2e2"},
             {"4k3/4r3/8/b7/8/2R5/4R3/4K3 w - - 0 1", "Re3", "e2e3"},
         }) {
        const ChessPosition position = position_of(row.fen);
        const SanMove move(position, std::string_view(row.san));
        EXPECT_EQ(move.to_string(true) + (move.check() ? "+" : ""), row.move) << row.san;
        EXPECT_EQ(move.san(), row.san);
    }
}

TEST(SanMove, ReadsEnPassantWhateverStandsThere) {
    const ChessPosition position = position_of("4k3/8/8/4P3/8/8/8/4K3 w - - 0 1");
    const SanMove move(position, std::string_view("exd6"));
    EXPECT_EQ(move.code(), MoveCode::en_passant);
    EXPECT_EQ(move.capture(), Piece(PieceKind::pawn, Side::black));
}

TEST(SanMove, Faults) {
    struct Row {
        const char *fen, *san;
        std::string expected;  // the FEN is put in for "$"
    };
    const auto none = [](const std::string& san) {
        return "SanMove operator=(string \"" + san + "\"): no moving piece found(2) \nfen   $\n";
    };
    const auto castling = [](const std::string& san) {
        return "SanMove operator=(string): illegal move \"" + san + "\"\nfen()=$";
    };
    for (const Row& row : {
             Row{start.c_str(), "", none("")},
             {start.c_str(), "+", none("+")},
             {start.c_str(), "x", none("x")},
             {start.c_str(), "Ng5", none("Ng5")},
             {start.c_str(), "O-O", castling("O-O")},
             {"4k3/8/8/8/8/8/8/1KN2R2 w F - 0 1", "O-O+", castling("O-O+")},
             {"4k3/8/8/8/8/8/8/4K3 w - - 0 1", "O-O-O", castling("O-O-O")},
             {start.c_str(), "Nf3)", "SanMove operator=(): Illegal character found"},
             {"8/4P1k1/8/8/8/8/8/4K3 w - - 0 1", "e8=K", "SanMove operator=(): wrong promotion format"},
             {"8/4P1k1/8/8/8/8/8/4K3 w - - 0 1", "e8Q", none("e8Q")},
             {"1n2k3/8/5n2/8/8/8/8/4K3 b - - 0 1", "Nd7",
              "SanMove operator=(): ambigue sanmove found: Nd7\nfen   $\n"},
             // Both are pinned and cannot go there along their lines.
             {"4rk2/8/8/b7/8/2N1N3/8/4K3 w - - 0 1", "Nd5", none("Nd5")},
         }) {
        const ChessPosition position = position_of(row.fen);
        EXPECT_EQ(thrown_text([&] { SanMove(position, std::string_view(row.san)); }),
                  test::filled(row.expected, row.fen))
            << row.san;
    }
}

TEST(SanMove, IsLegalLooksAtPinsAndOwnPieces) {
    const ChessPosition position = position_of("4k3/4r3/8/8/8/2N1R3/3P4/4K3 w - - 0 1");
    SanMove move(position, std::string_view("Kf1"));
    EXPECT_TRUE(move.is_legal(Square("c3"), Square("a4")));
    EXPECT_FALSE(move.is_legal(Square("e1"), Square("d2")));
    EXPECT_TRUE(move.is_legal(Square("e3"), Square("e7")));
    EXPECT_FALSE(move.is_legal(Square("e3"), Square("a3")));
    EXPECT_EQ(thrown_text([&] { move.is_legal(Square("a1"), Square("a2")); }),
              "SanMove::is_legal   move without moving piece?");
    EXPECT_EQ(thrown_text([&] { move.is_legal(Square("e7"), Square("a7")); }),
              "SanMove::is_legal   black piece wants to move while side to move is white\n"
              "FEN 4k3/4r3/8/8/8/2N1R3/3P4/4K3 w - - 0 1\nfrom e7 to a7\n");
    move = "Nb5";
    EXPECT_EQ(move.to_string(false), "c3b5");
    move = position.convert_to_move("c3d5");
    EXPECT_EQ(move.san(), "Nd5");
}

TEST(SanMove, NoPieceReachesTheSquare) {
    const ChessPosition position = position_of(start);
    EXPECT_EQ(thrown_text([&] { SanMove(position, position.convert_to_move("g1g5")); }),
              "FEN " + start + "\nSanMove::operator=(g1g5):   no piece can make this move");
}

}  // namespace
}  // namespace velmora
