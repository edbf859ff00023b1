#include "views/board/shown_position.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/support/thrown_text.h"

namespace velmora {
namespace {

const std::string empty_rank = "????????";
const std::string start_letters =
    "RNBQKBNRPPPPPPPP" + empty_rank + empty_rank + empty_rank + empty_rank + "pppppppprnbqkbnr";
const std::string no_pieces(64, '?');

std::string with(std::string letters, std::size_t square, char letter) {
    letters[square] = letter;
    return letters;
}

TEST(ShownPosition, ReadsPlacementAndSide) {
    struct Row {
        const char* fen;
        std::string letters;
        bool white_to_move;
    };
    for (const Row& row : {
             Row{"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1", start_letters, true},
             Row{"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR b KQkq - 0 1", start_letters, false},
             Row{"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR", start_letters, false},
             Row{"8/8/8/8/8/8/8/7K white", with(no_pieces, 7, 'K'), false},
             Row{"", no_pieces, false},
             Row{"k", with(no_pieces, 56, 'k'), false},
             Row{"8/8/8/8/8/8/8/44", no_pieces, false},
             // Digits beyond the end of a rank are not checked: the next letter lands where the index points.
             Row{"8/88/q", with(no_pieces, 48, 'q'), false},
         }) {
        const auto position = read_shown_position(row.fen);
        EXPECT_EQ(position.pieces, shown_pieces(row.letters)) << row.fen;
        EXPECT_EQ(position.white_to_move, row.white_to_move) << row.fen;
    }
}

TEST(ShownPosition, FaultsHaveTheirTexts) {
    struct Row {
        std::string fen, text;
    };
    for (const Row& row : {
             Row{"8/8/8/8/8/8/8/8/8 w", "BoardPosition::fen(8/8/8/8/8/8/8/8/8 w)    syntax error"},
             Row{"88k w", "BoardPosition::fen(88k w)    syntax error"},
             Row{"8/9/8", "ChessBoard::set_fen(8/9/8) \nunkown piece 0x39"},
             Row{"rnbxkbnr b", "ChessBoard::set_fen(rnbxkbnr b) \nunkown piece 0x78"},
             Row{"\xC3\xA9", "ChessBoard::set_fen(\xC3\xA9) \nunkown piece 0xc3"},
         }) {
        EXPECT_EQ(test::thrown_text([&] { read_shown_position(row.fen); }), row.text);
    }
    const std::string unknown = "Drawing::set_parent_window(Gtk::Window*)  unknown piece";
    EXPECT_EQ(test::thrown_text([] { shown_pieces(with(no_pieces, 63, 'x')); }), unknown);
    EXPECT_EQ(test::thrown_text([] { shown_piece('1'); }), unknown);
    EXPECT_THROW(shown_pieces("????"), std::logic_error);
}

}  // namespace
}  // namespace velmora
