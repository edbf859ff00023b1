#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <variant>

#include <gtest/gtest.h>

#include "channel/engine_line.h"
#include "channel/to_referee.h"
#include "channel/to_window.h"

namespace velmora {
namespace {

TEST(EngineLine, IsTextAndFields) {
    const struct {
        std::string line, text;
        EngineWord word;
        std::string_view move;
    } rows[] = {
        {"1 77 bestmove e2e4 ponder e7e5 TS=12", "bestmove e2e4 ponder e7e5", EngineWord::best_move, "e2e4"},
        {"2 77 bestmove e2e4 TS=12 stopped", "bestmove e2e4", EngineWord::best_move, "e2e4"},
        {"1 77 bestmove e2e4 stopped", "bestmove e2e4", EngineWord::best_move, "e2e4"},
        {"1 77 bestmove TS=12", "bestmove", EngineWord::best_move, ""},
        {"1 77 bestmove stopped", "bestmove stopped", EngineWord::best_move, "stopped"},
        {"1 77 info string bestmove TS=12", "info string bestmove TS=12", EngineWord::info, "string"},
        {"1 77 resign", "resign", EngineWord::resign, ""},
        {"1 77 readyok", "readyok", EngineWord::other, ""},
    };
    for (const auto& row : rows) {
        const auto line = decode_engine_line(row.line);
        ASSERT_TRUE(line) << row.line;
        EXPECT_EQ(encode(*line), row.line);
        EXPECT_EQ(line->text, row.text);
        EXPECT_EQ(line->word(), row.word) << row.line;
        EXPECT_EQ(line->move(), row.move) << row.line;
    }
    EXPECT_EQ(decode_engine_line("0 bestmove e2e4"), std::nullopt);
}

/// A text, and a looser one that is read as the same where there is one.
struct Row {
    std::string text;
    std::string loose = {};
};

/// Each text is read as a line that is written so; and no kind of line is without a row.
template <class Line, std::size_t size>
void expect_language(std::optional<Line> (*decode)(std::string_view), const Row (&rows)[size]) {
    std::set<std::size_t> kinds;
    for (const auto& row : rows) {
        const auto read = decode(row.loose.empty() ? row.text : row.loose);
        ASSERT_TRUE(read) << row.text;
        kinds.insert(read->index());
        EXPECT_EQ(encode(*read), row.text);
    }
    EXPECT_EQ(kinds.size(), std::variant_size_v<Line>);
    for (const char* unknown : {"", "Move", "white", "1-1", "reset board"}) {
        EXPECT_FALSE(decode(unknown)) << unknown;
    }
}

TEST(Vocabulary, OfTheReferee) {
    const Row rows[] = {{"move e7e8q", " move  e7e8q now"},
                        {"setboard 8/8/8 w - -", "setboard  8/8/8 w - -"},
                        {"white_info  depth 1 "},
                        {"black_info"},
                        {"event Big one ", "event   Big one "},
                        {"wtime -5"},
                        {"btime 0", "btime soon"},
                        {"engine1name A  b", "engine1name   A  b "},
                        {"engine2name ???"},
                        {"whitename A b", "whitename A b "},
                        {"blackname ", "blackname"},
                        {"set_arrow 12 28 g"},
                        {"set_arrow 0 63 r"},
                        {"set_arrow 0 2 b", "set_arrow 0 2 ?"},
                        {"telluser Not_so  fast "},
                        {"1-0 {White mates}"},
                        {"0-1 {time}"},
                        {"1/2-1/2 {a {b}"},
                        {"termination time forfeit", "termination  time forfeit "},
                        {"draw_offered white"},
                        {"draw_declined black"},
                        {"taken_back 2"},
                        {"emt 1234"},
                        {"takeback"},
                        {"shout"},
                        {"new"},
                        {"site here"},
                        {"match_progress 3 4 1.5 - 0.5"},
                        {"match_progress 3 40 -"},
                        {"reviewed 7 2 g1f3 depth 18 score cp 35 pv g1f3",
                         "reviewed 7 2 g1f3  depth 18 score cp 35 pv g1f3 "},
                        {"review_left_out 7 3"},
                        {"review_finished 7 done"},
                        {"review_finished 8 stopped"},
                        {"review_finished 9 failed"},
                        {"round 3.2"},
                        {"level sessions 40 5 2"},
                        {"WhiteElo 2600"},
                        {"BlackElo 1"},
                        {"clear_arrows"},
                        {"reset mode"},
                        {"tournament_finished"},
                        {"quit"}};
    expect_language<to_window::Line>(to_window::decode, rows);
}

TEST(Vocabulary, OfTheWindow) {
    const Row rows[] = {{"human_human", "human_human now"},
                        {"learnopenings 3"},
                        {"learnopenings 0", "learnopenings all"},
                        {"setboard 8/8 w - - 0 1", "setboard  8/8 w - - 0 1"},
                        {"load 2 filename /a b", "load 2 filename  /a b "},
                        {"load 0 name A b", "load name A b"},
                        {"ponder on"},
                        {"ponder off", "ponder perhaps"},
                        {"setoption name Book File value a b", "setoption name Book  File value  a  b "},
                        {"setoption name  value ", "setoption Hash value 64"},
                        {"polyglotbook a b.bin", "polyglotbook  a b.bin "},
                        {"debug true"},
                        {"debug false", "debug 1"},
                        {"load_tournament a.trn ", "load_tournament  a.trn "},
                        {"analyzeposition"},
                        {"go"},
                        {"new"},
                        {"playother"},
                        {"usermove e2e4"},
                        {"resign"},
                        {"offer_draw"},
                        {"claim_draw"},
                        {"take_back"},
                        {"move_now"},
                        {"lose_on_time on"},
                        {"flag"},
                        {"result 0-1 time_forfeit {time}", "result 0-1  time_forfeit {time}"},
                        {"setgame 8/8 w - - 0 1 moves e2e4"},
                        {"clock 61500 12"},
                        {"level fixed_depth 7"},
                        {"review 7 fixed_movetime 500 2,1 8/8 w - - 0 1 moves e2e4",
                         "review 7 fixed_movetime  500 2,1  8/8 w - - 0 1 moves e2e4"},
                        {"review_stop"},
                        {"book a.pgn"},
                        {"start_tournament"},
                        {"wake_up"},
                        {"quit"}};
    expect_language<to_referee::Line>(to_referee::decode, rows);
}

}  // namespace
}  // namespace velmora
