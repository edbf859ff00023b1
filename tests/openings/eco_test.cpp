#include "openings/eco.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include "chess/moves/legal_moves.h"
#include "chess/moves/position.h"
#include "chess/notation/san_move.h"

namespace velmora {
namespace {

std::uint64_t key_after(std::initializer_list<const char*> moves, const char* fen = nullptr) {
    ChessPosition position;
    position.new_game();
    if (fen) position.set_fen(fen);
    for (const auto* text : moves) {
        const auto move = find_legal(position, SanMove(position, text));
        if (!move) throw std::runtime_error(text);
        position.do_move(*move);
    }
    return position.key();
}

TEST(EcoTable, HasItsCounts) {
    std::map<char, int> volumes;
    std::set<std::string_view> codes;
    std::set<std::string_view> openings;
    for (const auto& row : eco_rows()) {
        ++volumes[row.code[0]];
        codes.insert(row.code);
        openings.insert(row.opening);
    }
    EXPECT_EQ(eco_rows().size(), 2014U);
    EXPECT_EQ(volumes, (std::map<char, int>{{'A', 338}, {'B', 350}, {'C', 804}, {'D', 324}, {'E', 198}}));
    EXPECT_EQ(codes.size(), 500U);
    EXPECT_EQ(openings.size(), 282U);
    EXPECT_EQ(std::ranges::count(eco_rows(), "", &EcoRow::variation), 368);
    EXPECT_TRUE(std::ranges::is_sorted(eco_rows(), {}, &EcoRow::code));
    EXPECT_EQ(eco_rows_by_key().size(), 2010U);
}

TEST(Eco, NamesPositions) {
    const struct {
        std::uint64_t key;
        std::tuple<std::string, std::string, std::string> names;
    } rows[] = {
        {0xECCEE3B4B02790B8, {"A00", "Polish (Sokolsky) opening", ""}},
        {0x3BC1C9E50D45BDAF, {"A00", "Benko's opening", "reversed Alekhine"}},
        {0xD286ED2A947E5D69, {"C39", "KGA", "Allgaier, Schlechter defence"}},
        {0x621ABAB91F14E1BD, {"D00", "Blackmar-Diemer gambit", ""}},
        {0x7F15A97B728630A8, {"E99", "King's Indian", "orthodox, Aronin-Taimanov, Benko attack"}},
        // Of two rows with one key the later one.
        {0xB536DA19561976FA, {"C43", "Petrov", "Urusov gambit"}},
        {0x564CD70E15BF3469, {"C33", "KGA", "bishop's gambit, Gifford variation"}},
        {0x8A947A97D332D77D, {"D90", "Gruenfeld", "Schlechter variation"}},
        {0xD0852CD18AA5813F, {"D43", "QGD semi-Slav", "Hastings variation"}},
        // Nothing: the start, and keys at both ends.
        {0x463B96181691FC9C, {"", "", ""}},
        {0, {"", "", ""}},
        {~std::uint64_t{0}, {"", "", ""}},
    };
    const Eco eco;
    for (const auto& row : rows) {
        EXPECT_EQ(std::tuple(eco.code(row.key), eco.opening(row.key), eco.variation(row.key)), row.names)
            << std::hex << row.key;
    }
    for (const auto& row : eco_rows()) EXPECT_NE(eco.code(row.key), "") << row.code << row.variation;
}

TEST(Eco, GoesByPosition) {
    const Eco eco;
    EXPECT_EQ(eco.opening(key_after({"b4"})), "Polish (Sokolsky) opening");
    EXPECT_EQ(eco.code(key_after({"d4", "Nf6", "c4", "e6", "Nc3", "Bb4"})), "E20");
    EXPECT_EQ(eco.code(key_after({"c4", "e6", "Nc3", "Nf6", "d4", "Bb4"})), "E20") << "a transposition";
    EXPECT_EQ(eco.code(key_after({"b4"}, "rnbqkbrn/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBRN w GAga - 0 1")), "")
        << "Chess960 rights";
}

}  // namespace
}  // namespace velmora
