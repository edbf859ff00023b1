#include "window/session/position_line.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace velmora {
namespace {

const std::string start = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR";

TEST(PositionLine, ValidityTest) {
    const struct {
        std::string line;
        bool valid;
    } rows[] = {
        {start + " w KQkq - 0 1", true},
        {start + " b - e3 bm e4;", true},
        {start + " w HAha -", true},
        {"8/8/8/8/8/8/8/8 w - -", true},
        {start + " W KQkq -", false},
        {start + " w KQkqK -", false},
        {start + " w KQxq -", false},
        {start + " w KQkq e", false},
        {start + " w KQkq i3", false},
        {start + " w KQkq e9", false},
        {start + " w KQkq", false},
        {"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP w KQkq -", false},
        {"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBN w KQkq -", false},
        {"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR1 w KQkq -", false},
        {"rnbqkbnr/pppppppp/7x/8/8/8/PPPPPPPP/RNBQKBNR w KQkq -", false},
        {"", false},
    };
    for (const auto& row : rows) EXPECT_EQ(is_position_line(row.line), row.valid) << row.line;
}

TEST(PositionLine, OperationsBecomeRosterTags) {
    using Tags = std::vector<std::pair<std::string, std::string>>;
    EXPECT_EQ(roster_tags(start + " w KQkq - id \"Test; one\"; WHITE \"Ann\"; bm e4; round 3"),
              (Tags{{"Event", "Test; one"}, {"White", "Ann"}, {"Round", "3"}}));
    EXPECT_EQ(epd_operations(start + " w KQkq - 0 1"), "");
    EXPECT_EQ(epd_operations(start + " w KQkq -  bm e4; "), "bm e4;");
}

}  // namespace
}  // namespace velmora
