#include <set>
#include <string>

#include <gtest/gtest.h>

#include "chess/board/chess960.h"
#include "tests/support/positions.h"
#include "tests/support/thrown_text.h"

namespace velmora {
namespace {

using test::thrown_text;
const std::string start = test::start_fen;

TEST(Fen, ReadAndWritten) {
    struct Row {
        std::string read, written;
    };
    for (const Row& row : {
             Row{start, start},
             {"r3k2r/8/8/8/8/8/8/R3K2R w qH - 0 1", "r3k2r/8/8/8/8/8/8/R3K2R w Kq - 0 1"},
             // Without rooks the walk ends one file on, and that right is kept.
             {"4k3/8/8/8/8/8/8/4K3 w KQkq - 0 1", "4k3/8/8/8/8/8/8/4K3 w BGbg - 0 1"},
             {"1r2k1r1/8/8/8/8/8/8/1R2K1R1 b KQkq - 0 1", "1r2k1r1/8/8/8/8/8/8/1R2K1R1 b BGbg - 0 1"},
             {"4k3/8/8/8/8/8/8/4K3 w - e5 3 x", "4k3/8/8/8/8/8/8/4K3 w - e6 3 1"},
             {"4k3/8/8/8/8/8/8/4K3 W - e3", "4k3/8/8/8/8/8/8/4K3 b - e3 0 1"},
             {"4k3/8/8/8/8/8/8/4K3 w - - 65536 -1", "4k3/8/8/8/8/8/8/4K3 w - - 0 1"},
             {"4k3/8/8/8/8/8/8/4K3 w - - 65535 65535", "4k3/8/8/8/8/8/8/4K3 w - - 65535 65535"},
             {" 4k3/44/8/p7/8/8/P7/4K3\tw\n- -", "4k3/8/8/p7/8/8/P7/4K3 w - - 0 1"},
             // A rank that is too long leads back to it, and a later piece replaces an earlier one.
             {"N78/K6k w - -", "K6k/8/8/8/8/8/8/8 w - - 0 1"},
         }) {
        ChessPosition position;
        position.fen(row.read);
        EXPECT_EQ(position.fen(), row.written);
        EXPECT_EQ(position.epd() + " ", row.written.substr(0, position.epd().size() + 1));
    }
}

TEST(Fen, StartFenKeepsTheFields) {
    ChessPosition position;
    EXPECT_EQ(position.start_fen(), "8/8/8/8/8/8/8/8 w - - 0 1");
    position.fen("  4k3/8/8/8/8/8/8/4K3   w  KQ  c3 007  junk more");
    EXPECT_EQ(position.start_fen(), "4k3/8/8/8/8/8/8/4K3 w KQ c3 007 1");
}

TEST(Fen, Faults) {
    struct Row {
        std::string text, expected;
    };
    // The FEN is put in for "$".
    const std::string kings = "ChessPosition::fen($)   error number of kings";
    const std::string syntax = "BoardPosition::fen($)    syntax error";
    const std::string unknown = "BoardPosition::fen($) \nunkown piece 0x";
    for (const Row& row : {
             Row{"", kings},
             {"KK6/8/8/8/8/8/8/k7 w - -", kings},
             {"4k3/8/8/8/8/8/8/4K3 w", "ChessPosition::fen(string)   error castle field"},
             {"4k3/8/8/8/8/8/8/4K3 w -", "ChessPosition::fen(string)   error EP field"},
             {"4k3/8/8/8/8/8/8/P3K3 w - -", "BoardPosition::fen   error: white pawn on wrong square"},
             {"4k2p/8/8/8/8/8/8/4K3 w - -", "BoardPosition::fen   error: black pawn on wrong square"},
             {"nnnnnnnnn/8/8/8/8/8/8/K6k w - -", syntax},
             {"kK6/8/8/8/8/8/8/8/8/8 w - -", syntax},
             {"k7/8/8/8/8/K7/8/8/8/n7/8 w - -", syntax},
             {"k8n/8/8/8/8/8/8/K7 w - -", syntax},
             {"9/8/8/8/8/8/8/K6k w - - 0 1", unknown + "39"},
             {"8/8/\xE4/8/8/8/8/K6k w - - 0 1", unknown + "e4"},
             // The character named is counted from the start of the whole text.
             {" 7x/8/8/8/8/8/8/K6k w - -", unknown + "37"},
             // A king that a later piece replaces.
             {"8/8/8/8/8/8/8/8K/r7/8/k6 w - -", syntax},
             {"K78/n6k/8/8 w - -", kings},
         }) {
        ChessPosition position;
        EXPECT_EQ(thrown_text([&] { position.fen(row.text); }), test::filled(row.expected, row.text));

        ChessPosition kept;
        kept.new_game();
        kept.do_move(kept.convert_to_move("e2e4"));
        const std::string before = kept.fen();
        kept.set_fen(row.text);
        EXPECT_EQ(kept.fen(), before) << row.text;
        EXPECT_TRUE(kept.moves().empty());  // read back from its own FEN
        EXPECT_EQ(kept.start_fen(), before);
    }
}

TEST(Fen, BoardAloneRefusesASecondKing) {
    BoardPosition board;
    EXPECT_EQ(thrown_text([&] { board.fen("KK6/8/8/8/8/8/8/8 w"); }),
              "BoardPosition::fen   error: too many white kings");
    EXPECT_EQ(thrown_text([&] { board.fen("kk6/8/8/8/8/8/8/8 w"); }),
              "BoardPosition::fen   error: too many black kings");
}

TEST(Fen, AFaultOnTheEmptyBoardLeavesItEmpty) {
    ChessPosition position;
    position.set_fen("nonsense");
    EXPECT_EQ(position.fen(), "8/8/8/8/8/8/8/8 w - - 0 1");
    EXPECT_EQ(position.key(), ChessPosition().key());
}

TEST(Fen, XfenNamesTheRooks) {
    ChessPosition position;
    position.new_game();
    position.set_xfen(true);
    EXPECT_EQ(position.fen(), "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w AHah - 0 1");
}

TEST(Chess960, Numbers) {
    ChessPosition position;
    const auto rank_of = [&position](std::uint32_t number) {
        position.new_chess960(number);
        return position.fen().substr(35, 8);
    };
    EXPECT_EQ(rank_of(0), "BBQNNRKR");
    EXPECT_EQ(rank_of(518), "RBKNBQRN");
    EXPECT_EQ(rank_of(385), "RNBQKBNR");
    EXPECT_EQ(position.fen(), start);

    std::set<std::string> all;
    for (std::uint32_t number = 0; number < chess960_positions; ++number) {
        const std::string rank = rank_of(number);
        const Bitboard bishops = position.board().white_bishops();
        EXPECT_TRUE((bishops & light_squares).one_bit() && (bishops & dark_squares).one_bit());
        EXPECT_TRUE(rank.find('R') < rank.find('K') && rank.find('K') < rank.rfind('R')) << rank;
        all.insert(rank);
    }
    EXPECT_EQ(all.size(), 960U);
    EXPECT_TRUE(all.contains(rank_of(static_cast<std::uint32_t>(-1))));
}

TEST(Mirror, ColoursAndFiles) {
    ChessPosition position;
    position.fen("r3k2r/8/8/8/3pPp2/8/5P2/R3KQ2 b Qk e3 4 9");
    position.mirror_colours();
    EXPECT_EQ(position.fen(), "r3kq2/5p2/8/3PpP2/8/8/8/R3K2R w Kq e6 4 9");
    position.mirror_files();
    EXPECT_EQ(position.fen(), "2qk3r/2p5/8/2PpP3/8/8/8/R2K3R w Qk d6 4 9");
    EXPECT_EQ(position.start_fen(), position.fen());
    ChessPosition empty;
    empty.mirror_colours();
    EXPECT_EQ(empty.fen(), "8/8/8/8/8/8/8/8 b - - 0 1");
}

}  // namespace
}  // namespace velmora
