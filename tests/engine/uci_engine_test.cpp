#include "tests/engine/driver_transcript.h"

namespace velmora {
namespace {

const Transcript rows[] = {
    {"start_position_goes_out_as_fen", "until go; answer info depth 1 pv e2e4; answer bestmove e2e4",
     "level sudden_death 0 5 2; new_game; position startpos; go; posted 2",
     "ucinewgame; isready; position fen START moves; isready; go wtime 300000 btime 1 winc 2000 binc 2000",
     "info depth 1 pv e2e4; bestmove e2e4 TS=~"},
    {"black_gets_its_own_time_and_two_blanks_ahead_of_movestogo", "",
     "level sessions 40 1 0.5; black; opponent 54321; moves_done 38; position startpos e2e4 c7c5 g1f3; go",
     "position fen START moves e2e4 c7c5 g1f3; isready; go wtime 54321 btime 60000 winc 500 binc 500  "
     "movestogo 2; stop",
     ""},
    {"fixed_modes", "until go; answer bestmove a2a3; until go; answer bestmove a2a3",
     "level fixed_depth 12; go; posted 1; level fixed_nodes 1000; go; posted 2; level fixed_movetime 500; go",
     "position fen START moves; isready; go depth 12; position fen START moves; isready; go nodes 1000; "
     "position fen START moves; isready; go movetime 500; stop",
     "bestmove a2a3 TS=~; bestmove a2a3 TS=~"},
    {"ponder_hit", "until go; answer bestmove e2e4 ponder e7e5; until ponderhit; answer bestmove g1f3",
     "level fixed_depth 3; ponder on; go; posted 1; position startpos e2e4 e7e5; go; posted 2",
     "position fen START moves; isready; go depth 3; position fen START moves e2e4 e7e5; go wtime ~ btime 0 "
     "winc 0 binc 0 ponder; ponderhit",
     "bestmove e2e4 ponder e7e5 TS=~; bestmove g1f3 TS=~"},
    {"ponder_miss_marks_the_move_of_the_stopped_search",
     "until go; answer bestmove e2e4 ponder e7e5; until stop; until go; answer bestmove d2d4; answer "
     "bestmove d2d3",
     "level fixed_depth 3; ponder on; go; posted 1; position startpos e2e4 c7c5; go; posted 3; stop",
     "position fen START moves; isready; go depth 3; position fen START moves e2e4 e7e5; go wtime ~ btime 0 "
     "winc 0 binc 0 ponder; stop; position fen START moves e2e4 c7c5; isready; go depth 3",
     "bestmove e2e4 ponder e7e5 TS=~; bestmove d2d4 TS=~ stopped; bestmove d2d3 TS=~"},
    {"stop_of_a_ponder_search",
     "until go; answer bestmove e2e4 ponder e7e5; until stop; answer bestmove a2a3",
     "level fixed_depth 3; ponder on; go; posted 1; stop; stop; posted 2",
     "position fen START moves; isready; go depth 3; position fen START moves e2e4 e7e5; go wtime ~ btime 0 "
     "winc 0 binc 0 ponder; stop",
     "bestmove e2e4 ponder e7e5 TS=~; bestmove a2a3 TS=~ stopped"},
    {"no_ponder_search_without_the_wish_the_word_or_legal_moves",
     "until go; answer bestmove e2e4 ponder e7e5; until go; answer bestmove e2e4; until go; answer bestmove "
     "e2e5 ponder e7e5; until go; answer bestmove e2e4 ponder e7e4; until go; answer bestmove e2e4 ponder; "
     "until go; answer bestmove",
     "level fixed_depth 1; go; posted 1; ponder on; go; posted 2; go; posted 3; go; posted 4; go; posted 5; "
     "go; posted 6",
     "position fen START moves; isready; go depth 1; position fen START moves; isready; go depth 1; "
     "position fen START moves; isready; go depth 1; position fen START moves; isready; go depth 1; "
     "position fen START moves; isready; go depth 1; position fen START moves; isready; go depth 1",
     "bestmove e2e4 ponder e7e5 TS=~; bestmove e2e4 TS=~; bestmove e2e5 ponder e7e5 TS=~; bestmove e2e4 "
     "ponder e7e4 TS=~; bestmove e2e4 ponder TS=~; bestmove TS=~"},
    {"overstepped_time_is_raised_to_1_for_go_alone", "until go; wait 30; answer bestmove e2e4 ponder e7e5",
     "level sudden_death 0 0 0; opponent -7; ponder on; go; posted 1",
     "position fen START moves; isready; go wtime 1 btime 1 winc 0 binc 0; position fen START moves e2e4 "
     "e7e5; go wtime -~ btime -7 winc 0 binc 0 ponder; stop",
     "bestmove e2e4 ponder e7e5 TS=~"},
    {"analysis_and_its_stop", "until go infinite; answer info depth 9; until stop; answer bestmove e2e4",
     "stop; position startpos d2d4; infinite; posted 1; stop; posted 2; stop",
     "position fen START moves d2d4; go infinite; stop", "info depth 9; bestmove e2e4 TS=~ stopped"},
    {"new_game_stops_first", "until go infinite; until ucinewgame; answer readyok",
     "position startpos d2d4; infinite; new_game; infinite",
     "position fen START moves d2d4; go infinite; stop; ucinewgame; isready; position fen START moves; go "
     "infinite; stop",
     ""},
    {"an_option_interrupts_an_analysis_and_reaches_an_engine_at_rest_with_all_others",
     "until go infinite; until stop; answer bestmove a2a3; until go infinite; answer info depth 2; until "
     "stop; answer bestmove a2a3",
     "infinite; option Book a b; posted 2; stop; posted 3; option Book <empty>; option UCI_Chess960 true; "
     "option None x",
     "position fen START moves; go infinite; stop; setoption name Book value a b; position fen START moves; "
     "go infinite; stop; setoption name Book value <empty>; setoption name Clear Hash; setoption name "
     "UCI_Chess960 value false; setoption name Clear Hash; setoption name UCI_Chess960 value true; "
     "setoption name Clear Hash; setoption name UCI_Chess960 value true",
     "bestmove a2a3 TS=~ stopped; info depth 2; bestmove a2a3 TS=~ stopped"},
    {"an_option_interrupts_a_ponder_search",
     "until go; answer bestmove e2e4 ponder e7e5; until stop; answer bestmove d2d4; until ponderhit; answer "
     "bestmove g1f3",
     "level fixed_depth 3; ponder on; go; posted 1; option Book x; option None x; posted 2; position "
     "startpos e2e4 e7e5; go; posted 3",
     "position fen START moves; isready; go depth 3; position fen START moves e2e4 e7e5; go wtime ~ btime 0 "
     "winc 0 binc 0 ponder; stop; setoption name Book value x; position fen START moves e2e4 e7e5; go wtime "
     "~ btime 0 winc 0 binc 0 ponder; ponderhit",
     "bestmove e2e4 ponder e7e5 TS=~; bestmove d2d4 TS=~ stopped; bestmove g1f3 TS=~"},
    {"an_option_waits_for_the_end_of_a_search_or_the_begin_of_the_next",
     "until stop; answer bestmove a2a3; until ucinewgame; answer bestmove b2b3",
     "level fixed_depth 3; go; option Book x; sent 3; stop; posted 1; infinite; option Book y; new_game; "
     "posted 2; "
     "go; option Book z; stop; go",
     "position fen START moves; isready; go depth 3; stop; setoption name Book value x; position fen START "
     "moves; "
     "go infinite; stop; ucinewgame; isready; setoption name Book value y; position fen START moves; "
     "isready; go "
     "depth 3; stop; setoption name Book value z; position fen START moves; isready; go depth 3; stop",
     "bestmove a2a3 TS=~ stopped; bestmove b2b3 TS=~ stopped"},
    {"castling_in_both_spellings", "",
     "position r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1 | e1h1 e8a8; infinite; stop; option UCI_Chess960 true; "
     "position r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1 | e1h1 e8a8; infinite",
     "position fen r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1 moves e1g1 e8c8; go infinite; stop; setoption name "
     "UCI_Chess960 value true; position fen r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1 moves e1h1 e8a8; go "
     "infinite; stop",
     ""},
    {"readyok_waits_for_the_next_line_and_an_empty_line_is_swallowed",
     "until isready; answer readyok; until go; answer info depth 1; answer ; answer info string bestmove "
     "soon",
     "debug; level fixed_depth 1; go; posted 3", "position fen START moves; isready; go depth 1; stop",
     "readyok; info depth 1; info string bestmove soon TS=~"},
};

class UciEngineTest : public DriverTest {};

TEST_P(UciEngineTest, Transcript) {
    play(Protocol::uci,
         "until uci; answer id name Peer; answer option name UCI_Chess960 type check default false;"
         "answer option name Clear Hash type button; answer option name Book type string default <empty>;"
         "answer uciok; ",
         "uci");
}

INSTANTIATE_TEST_SUITE_P(All, UciEngineTest, testing::ValuesIn(rows),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace velmora
