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

/// A line, its text, and a looser text that is read as the same where there is one.
template <class Line>
struct Row {
    Line line;
    std::string text;
    std::string loose = {};
};

/// Each line is written as its text, which is read as such a line that is written so again; and no kind of
/// line is without a row.
template <class Line, std::size_t size>
void expect_language(std::optional<Line> (*decode)(std::string_view), const Row<Line> (&rows)[size]) {
    std::set<std::size_t> kinds;
    for (const auto& row : rows) {
        kinds.insert(row.line.index());
        EXPECT_EQ(encode(row.line), row.text);
        const auto read = decode(row.loose.empty() ? row.text : row.loose);
        ASSERT_TRUE(read) << row.text;
        EXPECT_EQ(read->index(), row.line.index()) << row.text;
        EXPECT_EQ(encode(*read), row.text);
    }
    EXPECT_EQ(kinds.size(), std::variant_size_v<Line>);
    for (const char* unknown : {"", "Move", "white", "1-1", "reset board"}) {
        EXPECT_FALSE(decode(unknown)) << unknown;
    }
}

TEST(Vocabulary, OfTheReferee) {
    using namespace to_window;
    expect_language<Line>(
        decode, {
                    {PlayMove{"e7e8q"}, "move e7e8q", " move  e7e8q now"},
                    {MoveTime{"1234"}, "emt 1234"},
                    {TakeBack(), "takeback"},
                    {SetBoard{"8/8/8 w - -"}, "setboard 8/8/8 w - -", "setboard  8/8/8 w - -"},
                    {Shout(), "shout"},
                    {NewGame(), "new"},
                    {GameOver{{GameResult::white_wins, "White mates"}}, "1-0 {White mates}"},
                    {GameOver{{GameResult::black_wins, "time"}}, "0-1 {time}"},
                    {GameOver{{GameResult::draw, "a {b"}}, "1/2-1/2 {a {b}"},
                    {SearchOutput{Side::white, "  depth 1 "}, "white_info  depth 1 "},
                    {SearchOutput{Side::black, ""}, "black_info"},
                    {SetEvent{"Big one "}, "event Big one ", "event   Big one "},
                    {SetSite{"here"}, "site here"},
                    {SetRound{"3.2"}, "round 3.2"},
                    {SetLevel{"sessions 40 5 2"}, "level sessions 40 5 2"},
                    {SetClock{Side::white, -5}, "wtime -5"},
                    {SetClock{Side::black, 0}, "btime 0", "btime soon"},
                    {EngineName{Seat::first, "A  b"}, "engine1name A  b", "engine1name   A  b "},
                    {EngineName{Seat::second, "???"}, "engine2name ???"},
                    {PlayerName{Side::white, "A b"}, "whitename A b", "whitename A b "},
                    {PlayerName{Side::black, ""}, "blackname ", "blackname"},
                    {PlayerElo{Side::white, "2600"}, "WhiteElo 2600"},
                    {PlayerElo{Side::black, "1"}, "BlackElo 1"},
                    {SetArrow{Square(12), Square(28), ArrowColor::green}, "set_arrow 12 28 g"},
                    {SetArrow{Square(0), Square(63), ArrowColor::red}, "set_arrow 0 63 r"},
                    {SetArrow{Square(0), Square(2), ArrowColor::blue}, "set_arrow 0 2 b", "set_arrow 0 2 ?"},
                    {ClearArrows(), "clear_arrows"},
                    {TellUser{"Not_so", "  fast "}, "telluser Not_so  fast "},
                    {ResetMode(), "reset mode"},
                    {TournamentFinished(), "tournament_finished"},
                    {Quit(), "quit"},
                });
}

TEST(Vocabulary, OfTheWindow) {
    using namespace to_referee;
    using Source = Load::Source;
    expect_language<Line>(
        decode, {
                    {AnalyzePosition(), "analyzeposition"},
                    {Go(), "go"},
                    {HumanHuman(), "human_human", "human_human now"},
                    {LearnOpenings{3}, "learnopenings 3"},
                    {LearnOpenings{0}, "learnopenings 0", "learnopenings all"},
                    {NewGame(), "new"},
                    {PlayOther(), "playother"},
                    {SetBoard{"8/8 w - - 0 1"}, "setboard 8/8 w - - 0 1", "setboard  8/8 w - - 0 1"},
                    {UserMove{"e2e4"}, "usermove e2e4"},
                    {Load{2, Source::filename, "/a b"}, "load 2 filename /a b", "load 2 filename  /a b "},
                    {Load{0, Source::name, "A b"}, "load 0 name A b", "load name A b"},
                    {SetLevel{"fixed_depth 7"}, "level fixed_depth 7"},
                    {Ponder{true}, "ponder on"},
                    {Ponder{false}, "ponder off", "ponder perhaps"},
                    {SetOption{"Book File", "a b"}, "setoption name Book File value a b",
                     "setoption name Book  File value  a  b "},
                    {SetOption{"", ""}, "setoption name  value ", "setoption Hash value 64"},
                    {PolyglotBook{"a b.bin"}, "polyglotbook a b.bin", "polyglotbook  a b.bin "},
                    {Book{"a.pgn"}, "book a.pgn"},
                    {Debug{true}, "debug true"},
                    {Debug{false}, "debug false", "debug 1"},
                    {LoadTournament{"a.trn "}, "load_tournament a.trn ", "load_tournament  a.trn "},
                    {StartTournament(), "start_tournament"},
                    {WakeUp(), "wake_up"},
                    {Quit(), "quit"},
                });
    EXPECT_EQ(std::get<Load>(*decode("load 1 stdin x")).source, Source::unknown);
}

}  // namespace
}  // namespace velmora
