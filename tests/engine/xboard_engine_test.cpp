#include "tests/engine/driver_transcript.h"

namespace velmora {
namespace {

const Transcript rows[] = {
    {"a_game_as_white_and_its_first_answer",
     "answer feature setboard=1 usermove=1 time=1 reuse=1 done=1; until go; answer 12 34 567 89012 e2e4 "
     "e7e5; answer move e2e4; until usermove e7e5; answer move g1f3; until usermove b8c6",
     "handicap 0.01; level sessions 40 0:10 0.1; new_game; position startpos; go; posted 2; position "
     "startpos e2e4 e7e5; opponent 65439; go; posted 3; position startpos e2e4 e7e5 g1f3 b8c6; go",
     "new; force; easy; post; level 40 0:10 0.1; time 999; otim 0; go; time ~; otim 6543; usermove e7e5; "
     "time ~; otim 6543; usermove b8c6; ?",
     "info depth 12 score cp 34 time 567 nodes 89012 nps 15698  e2e4 e7e5; bestmove e2e4; bestmove g1f3"},
    {"another_game_is_set_up_with_setboard_and_moves_in_san",
     "answer feature setboard=1 usermove=1 san=1 done=1; until go; answer move Nxe5",
     "position startpos e2e4 e7e5 g1f3 d7d6; go; posted 1",
     "setboard START; force; easy; post; usermove e4; usermove e5; usermove Nf3; usermove d6; go",
     "bestmove f3e5"},
    {"a_stopped_engine_moved_on_and_is_given_the_position_anew",
     "answer feature setboard=1 reuse=1 done=1; until ?; answer move e2e4; until e7e5; answer move g1f3; "
     "until go; answer move g8f6",
     "position startpos; go; stop; posted 1; position startpos e2e4 e7e5; go; posted 2; position startpos "
     "d2d4; go; posted 3",
     "go; ?; e7e5; setboard START; force; easy; post; d2d4; go",
     "bestmove e2e4 stopped; bestmove g1f3; bestmove g8f6"},
    {"an_engine_whose_own_game_is_over_begins_another_ahead_of_setboard",
     "answer feature setboard=1 done=1; until go; answer move d8h4; until go; answer move e7e5; answer "
     "1/2-1/2 {I say so}; until ?; answer move e7e6; until go",
     "debug; position startpos f2f3 e7e5 g2g4; go; posted 1; position startpos d2d4; go; posted 3; position "
     "startpos c2c4; go; stop; posted 4; position startpos e2e4; go",
     "setboard START; force; easy; post; f2f3; e7e5; g2g4; go; new; force; setboard START; force; easy; "
     "post; d2d4; go; new; force; setboard START; force; easy; post; c2c4; go; ?; setboard START; force; "
     "easy; post; e2e4; go; ?",
     "bestmove d8h4; bestmove e7e5; (nothing); bestmove e7e6 stopped"},
    {"an_option_waits_for_the_move", "answer feature memory=1 smp=1 done=1; until hard; answer move e2e4",
     "go; option xboard_memory 64; ponder on; posted 1; option xboard_threads 2",
     "go; hard; memory 64; memory 64; cores 2", "bestmove e2e4"},
    {"the_move_of_a_stopped_search_comes_late",
     "answer feature setboard=1 done=1; until setboard; answer move e2e4; answer move g8f6",
     "position startpos; go; stop; stop; position startpos d2d4; go; posted 2; position startpos d2d4 g8f6 "
     "c2c4; go",
     "go; ?; ?; setboard rnbqkbnr/pppppppp/8/8/3P4/8/PPP1PPPP/RNBQKBNR b KQkq - 0 1; go; c2c4; ?",
     "bestmove e2e4 stopped; bestmove g8f6"},
    {"without_setboard_the_moves_are_played_from_the_start",
     "answer feature usermove=1 reuse=1 time=1 done=1; until go; answer move b8c6",
     "new_game; position startpos e2e4 e7e5 g1f3; go; posted 1; position startpos e2e4 e7e5 g1f3 b8c6 f1b5; "
     "go",
     "new; force; easy; post; level 40 0:10 0.1; new; force; usermove e2e4; usermove e7e5; usermove g1f3; "
     "time 1000; otim 0; go; time ~; otim 0; usermove f1b5; ?",
     "bestmove b8c6"},
    {"without_setboard_and_reuse_no_new_is_sent", "answer feature done=1",
     "new_game; position startpos e2e4 e7e5 g1f3; position startpos e2e4 e7e5 f2f4; go",
     "force; e2e4; e7e5; f2f4; go; ?", ""},
    {"a_fresh_engine_that_is_never_sent_new_is_put_on_its_side",
     "answer feature done=1; until go; answer My move is : e7e5; answer My move is: e7e5",
     "debug; new_game; position startpos e2e4; go; posted 2; position startpos e2e4 e7e5 g1f3; go",
     "force; e2e4; go; g1f3; ?", "bestmove e7e5; My move is: e7e5"},
    {"an_engine_left_in_force_mode_is_told_to_go_behind_the_move",
     "answer feature setboard=1 done=1; until go; answer pong",
     "debug; position startpos d2d4 d7d5; position startpos d2d4 d7d5 e2e4; go; posted 1",
     "setboard START; force; easy; post; d2d4; d7d5; e2e4; go; ?", "pong"},
    {"edit_for_white", "answer feature ping=1 done=1; until go; answer move a1a8",
     "level fixed_depth 5; position 1n2k3/P7/8/8/8/8/6p1/RQ2K2R w KQ - 0 1; go; posted 1",
     "sd 5; new; force; sd 5; edit; #; Ke1; Qb1; Ra1; Rh1; Pa7; c; Ke8; Nb8; Pg2; .; go", "bestmove a1a8"},
    {"edit_for_black_hands_over_the_move_first", "answer feature setboard=0 done=1",
     "position 4k3/8/8/8/8/8/8/4K3 w - - 0 1 | e1d1; go", "new; force; a2a3; edit; #; Kd1; c; Ke8; .; go; ?",
     ""},
    {"levels_go_out_when_moves_base_or_increment_change",
     "answer feature setboard=1 done=1; until go; answer move e2e4; until go; answer move d2d4; until go; "
     "answer move c2c4; until go; answer move f2f4",
     "level fixed_depth 12; position startpos; go; posted 1; level fixed_depth 13; position startpos; go; "
     "posted 2; level sudden_death 0 5:30 0.5; position startpos; go; posted 3; level sessions 20 5 2; "
     "position startpos; go; posted 4",
     "sd 12; go; setboard START; force; easy; post; go; setboard START; force; easy; post; level 0 5:30 "
     "0.5; go; setboard START; force; easy; post; level 20 5 2; go",
     "bestmove e2e4; bestmove d2d4; bestmove c2c4; bestmove f2f4"},
    {"node_limit_is_depth_two", "answer feature done=1", "level fixed_nodes 100000; go", "sd 2; go; ?", ""},
    {"move_time_in_milliseconds", "answer feature done=1", "level fixed_movetime 2500; go", "st 2500; go; ?",
     ""},
    {"ponder_and_what_sends_nothing", "answer feature done=1",
     "ponder on; ponder off; stop; new_game; infinite", "hard; easy", ""},
    {"lines_that_are_not_moves",
     "answer feature done=1; until go; answer # some comment; answer 1-0 {White mates}; answer 1/2-1/2 "
     "{Draw}; answer pong 3; answer tellusererror x; answer telluser I resign soon; answer Illegal move: "
     "e2e5; answer 3. 12; answer 4 -5 0 77 d4",
     "go; posted 4", "go",
     "resign; resign; info depth 3 score cp 0 time 0 nodes 0 nps 0 . 12; info depth 4 score cp -5 time 0 "
     "nodes 77 nps 0  d4"},
    {"castling_for_white",
     "answer feature setboard=1 done=1; until go; answer move O-O; until go; answer move 0_0_0",
     "position r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1; go; posted 1; position r3k2r/8/8/8/8/8/8/R3K2R w KQkq "
     "- 0 1; go; posted 2",
     "setboard r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1; force; easy; post; go; setboard "
     "r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1; force; easy; post; go",
     "bestmove e1g1; bestmove e1c1"},
    {"castling_for_black_in_san", "answer feature setboard=1 san=1 done=1; until go; answer move 0-0-0",
     "position r3k2r/8/8/8/8/8/8/R3K2R b KQkq - 0 1; go; posted 1",
     "setboard r3k2r/8/8/8/8/8/8/R3K2R b KQkq - 0 1; force; easy; post; go", "bestmove e8c8"},
    {"moves_that_cannot_be_read_or_made",
     "answer feature setboard=1 san=1 done=1; until go; answer move Qh5; until go; answer move (; until go; "
     "answer move; until go; answer move e4",
     "go; posted 1; go; posted 2; go; posted 3; go; posted 4", "go; go; go; go",
     "bestmove Qh5; bestmove (; bestmove ; bestmove e2e4"},
};

class XboardEngineTest : public DriverTest {};

TEST_P(XboardEngineTest, Transcript) { play(Protocol::xboard_v2, "until protover 2; ", "accepted done"); }

INSTANTIATE_TEST_SUITE_P(All, XboardEngineTest, testing::ValuesIn(rows),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace velmora
