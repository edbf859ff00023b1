#include "openings/eco.h"

#include <algorithm>
#include <set>
#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include "tests/support/positions.h"

namespace velmora {
namespace {

std::uint64_t key_after(const char* moves, const std::string& fen = test::start_fen) {
    return test::position_of(fen, moves).key();
}

TEST(EcoTable, HasItsCounts) {
    std::set<std::string_view> codes;
    for (const auto& row : eco_rows()) codes.insert(row.code);
    EXPECT_EQ(eco_rows().size(), 2014U);
    EXPECT_EQ(codes.size(), 500U);
    EXPECT_TRUE(std::ranges::is_sorted(eco_rows(), {}, &EcoRow::code));
    EXPECT_EQ(eco_rows_by_key().size(), 2010U);
}

TEST(Eco, NamesPositions) {
    const struct {
        std::uint64_t key;
        std::tuple<std::string, std::string, std::string> names;
    } rows[] = {
        {0x3BC1C9E50D45BDAF, {"A00", "Benko's opening", "reversed Alekhine"}},
        {0x7F15A97B728630A8, {"E99", "King's Indian", "orthodox, Aronin-Taimanov, Benko attack"}},
        // Of two rows with one key the later one.
        {0xB536DA19561976FA, {"C43", "Petrov", "Urusov gambit"}},
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
    EXPECT_EQ(eco.opening(key_after("b2b4")), "Polish (Sokolsky) opening");
    EXPECT_EQ(eco.code(key_after("c2c4 e7e6 b1c3 g8f6 d2d4 f8b4")), "E20") << "a transposition";
    EXPECT_EQ(eco.code(key_after("b2b4", "rnbqkbrn/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBRN w GAga - 0 1")), "")
        << "Chess960 rights";
}

}  // namespace
}  // namespace velmora
