#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "channel/engine_line.h"

namespace velmora {
namespace {

TEST(EngineLine, IsTextAndFields) {
    const struct {
        std::string text;
        EngineLine line;
        EngineWord word;
        std::string_view move;
    } rows[] = {
        {"1 77 bestmove e2e4 ponder e7e5 TS=12",
         {.instance_id = 77, .text = "bestmove e2e4 ponder e7e5", .arrival = 12},
         EngineWord::best_move,
         "e2e4"},
        {"2 77 bestmove e2e4 TS=12 stopped",
         {.seat = Seat::second, .instance_id = 77, .text = "bestmove e2e4", .arrival = 12, .stopped = true},
         EngineWord::best_move,
         "e2e4"},
        {"1 77 bestmove e2e4 stopped",
         {.instance_id = 77, .text = "bestmove e2e4", .stopped = true},
         EngineWord::best_move,
         "e2e4"},
        {"1 77 bestmove TS=12",
         {.instance_id = 77, .text = "bestmove", .arrival = 12},
         EngineWord::best_move,
         ""},
        {"1 77 bestmove stopped",
         {.instance_id = 77, .text = "bestmove stopped"},
         EngineWord::best_move,
         "stopped"},
        {"1 77 info string bestmove TS=12",
         {.instance_id = 77, .text = "info string bestmove TS=12"},
         EngineWord::info,
         "string"},
        {"1 77 resign", {.instance_id = 77, .text = "resign"}, EngineWord::resign, ""},
        {"1 77 readyok", {.instance_id = 77, .text = "readyok"}, EngineWord::other, ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(encode(row.line), row.text);
        EXPECT_EQ(decode_engine_line(row.text), row.line) << row.text;
        EXPECT_EQ(row.line.word(), row.word) << row.text;
        EXPECT_EQ(row.line.move(), row.move) << row.text;
    }
    EXPECT_EQ(decode_engine_line("0 bestmove e2e4"), std::nullopt);
}

}  // namespace
}  // namespace velmora
