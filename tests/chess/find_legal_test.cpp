// find_legal() against the generated list, for every pair of squares.

#include <algorithm>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "chess/legal_moves.h"

namespace velmora {
namespace {

/// All that find_legal() accepts, in the order of the list; "?" at what is not in the list.
std::string found_moves(const ChessPosition& position, const MoveList& list) {
    std::string found;
    for (const Move& move : list) {
        const auto legal = find_legal(position, move);
        found +=
            legal && *legal == move && legal->xcode() == move.xcode() ? move.to_string(false) + " " : "-";
    }
    for (std::int32_t squares = 0; squares < 64 * 64; ++squares) {
        const Move move(Square(squares / 64), Square(squares % 64), MoveCode::normal_move, no_piece,
                        no_piece);
        const auto same = [move](const Move& listed) { return listed.same_move(move); };
        if (std::none_of(list.begin(), list.end(), same) && find_legal(position, move)) {
            found += "?" + move.to_string(false);
        }
    }
    return found;
}

TEST(FindLegal, AgreesWithTheList) {
    const char* const starts[] = {
        "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1",
        "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1",
        "8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w - - 0 1",
        "n1n5/PPPk4/8/8/8/8/4Kppp/5N1N b - - 0 1",
        "4k3/8/8/8/1b6/8/3P4/r3K2R w K - 0 1",
    };
    std::mt19937 random(3);
    for (const auto* fen : starts) {
        ChessPosition position;
        position.set_fen(fen);
        for (int ply = 0; ply < 60; ++ply) {
            const MoveList list = legal_moves(position);
            ASSERT_EQ(found_moves(position, list), list.to_string() + (list.size() == 0 ? "" : " "))
                << position.fen();
            if (list.size() == 0) break;
            position.do_move(list[random() % list.size()]);
        }
    }
}

}  // namespace
}  // namespace velmora
