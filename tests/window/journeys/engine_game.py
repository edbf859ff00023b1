"""A person against an engine: whole games to every kind of end, crashes, pondering, and the archive."""
import os
import re
import subprocess
import unittest

from driver import Journey, accepted_by_pgn_extract, main, wait_until

STOCKFISH = "/usr/games/stockfish"
FAIRYMAX = "/usr/games/fairymax"


class EngineGame(Journey):
    def begin(self, script, protocol="uci", name="Partner"):
        program = self.start()
        program.debug_on()
        path = program.scripted_engine("partner", f"name {name}\n" + script)
        program.load_engine(path, protocol, name)
        program.wait_for_title(name)
        program.choose("Mode", "Human - computer")
        program.wait_for_log("0 playother")
        return program

    def reply_to(self, program, move, reply):
        replies = sum("-----> move" in line for line in program.log())
        program.drag(move)
        program.wait_for_log("-----> move", replies + 1)
        self.assertIn(f"-----> move {reply}", "\n".join(program.log()))

    def finish_game(self, program, result):
        program.wait_for_log("-----> " + result)
        program.answer_message(result.split()[0])
        wait_until(lambda: result.split(None, 1)[1] in program.archive(), "the game in the archive")
        count = accepted_by_pgn_extract(program.path("Velmora battles.pgn"))
        self.assertIn(count, (None, 1))
        program.close()

    def test_the_person_is_mated(self):
        program = self.begin("line f2f3 e7e5 g2g4 d8h4\ninfo 3\nplay uci")
        self.reply_to(program, "f2f3", "e7e5")
        program.drag("g2g4")
        self.finish_game_with_shot(program, "0-1 {Black mates}")

    def finish_game_with_shot(self, program, result):
        program.wait_for_log("-----> " + result)
        program.wait_for("alert")
        program.screenshot("result")
        self.finish_game(program, result)

    def test_the_person_mates(self):
        program = self.begin("line e2e4 e7e5 d1h5 b8c6 f1c4 g8f6 h5f7\nplay uci")
        self.reply_to(program, "e2e4", "e7e5")
        self.reply_to(program, "d1h5", "b8c6")
        self.reply_to(program, "f1c4", "g8f6")
        program.drag("h5f7")
        self.finish_game(program, "1-0 {White mates}")

    def test_the_engine_resigns_over_xboard(self):
        program = self.begin("line e2e4 e7e5\nat 2 answer resign\nplay xboard", "xboard v2")
        self.reply_to(program, "e2e4", "e7e5")
        program.drag("g1f3")
        self.finish_game(program, "1-0 {black resigns}")

    def test_the_engine_plays_an_illegal_move(self):
        program = self.begin("at 1 answer bestmove e2e5\nplay uci")
        program.drag("e2e4")
        self.finish_game(program, "1-0 {illegal move: e2e5}")

    def test_a_crash_in_the_middle_keeps_the_game(self):
        program = self.begin("line e2e4 e7e5 g1f3 b8c6 f1c4 g8f6\nseed 1\nplay uci")
        self.reply_to(program, "e2e4", "e7e5")
        children = subprocess.run(["pgrep", "-P", str(program.process.pid)], capture_output=True, text=True,
                                  check=True).stdout.split()
        os.kill(int(children[0]), 9)
        program.drag("g1f3")
        program.answer_message("crashed")
        program.choose("Mode", "Start thinking")
        program.wait_for_log("-----> move b8c6")
        program.close()
        self.assertEqual(subprocess.run(["pgrep", "-f", program.home], capture_output=True, check=False).stdout, b"")

    def test_annotations_reach_the_comment(self):
        program = self.begin("line e2e4 e7e5\ninfo 2\nplay uci")
        self.reply_to(program, "e2e4", "e7e5")
        program.choose("View", "Show PGN")
        text = program.wait_for("text", root=program.wait_for("frame", "PGN"))
        wait_until(lambda: re.search(r"e5 \{\[%eval .*\[%depth ", text.get_text_iface().get_text(0, -1)),
                   "the engine's annotation")
        program.close()

    def test_start_thinking_twice_and_new_in_the_middle(self):
        program = self.begin("think 300\nseed 3\nplay uci")
        program.choose("Mode", "Start thinking")
        program.choose("Mode", "Start thinking")
        program.wait_for_log("-----> move")
        program.choose("Mode", "Start thinking")
        program.choose("File", "New game")
        program.wait_for_log("-----> new")
        program.drag("e2e4")
        program.wait_for_log("0 usermove e2e4")
        program.wait_for_log("-----> move", 2)
        program.close()

    @unittest.skipUnless(os.path.exists(STOCKFISH), "stockfish is not installed")
    def test_twenty_plies_against_stockfish(self):
        program = self.start()
        program.debug_on()
        program.load_engine(STOCKFISH, "autodetect", "Stockfish")
        program.choose("Mode", "Human - computer")
        program.choose("Options", "Ponder")
        program.choose("View", "Show Engine Output")
        for moves in range(1, 11):
            # Whatever the engine does, it answers; the person lets it play its own side as well.
            program.choose("Mode", "Start thinking")
            program.wait_for_log("-----> move", moves, 60)
        program.screenshot("stockfish-game")
        program.close()

    @unittest.skipUnless(os.path.exists(FAIRYMAX), "fairymax is not installed")
    def test_fairymax_answers(self):
        program = self.start()
        program.debug_on()
        program.load_engine(FAIRYMAX, "xboard v2", "")
        program.choose("Mode", "Human - computer")
        program.drag("e2e4")
        program.wait_for_log("-----> move", 1, 60)
        program.close()


main()
