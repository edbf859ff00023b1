"""A person against an engine: whole games to every kind of end, crashes, pondering, and the archive."""
import os
import re
import subprocess
import unittest

from driver import PGN_EXTRACT, Journey, accepted_by_pgn_extract, main, positions_by_pgn_extract, wait_until

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

    def test_both_sides_promote(self):
        program = self.begin("line a7a8n a2a1r a8c7 a1c1\nat 3 answer resign\nplay uci")
        self.set_up(program, "8/P5k1/8/8/8/8/p4K2/8 w - - 0 1")
        program.promote("a7a8", "n")
        program.wait_for_log("-----> move a2a1r")
        program.expect_fen("N7/6k1/8/8/8/8/5K2/r7 w - - 0 2")
        self.reply_to(program, "a8c7", "a1c1")
        program.drag("c7d5")
        self.finish_game(program, "1-0 {black resigns}")

    def test_a_promotion_mates(self):
        for fen, move, letter, result in (("4k3/P7/4K3/8/8/8/8/8 w - - 0 1", "a7a8", "q", "1-0 {White mates}"),
                                          ("8/8/8/8/8/4k3/p7/4K2N w - - 0 1", "h1g3", "", "0-1 {Black mates}")):
            program = self.begin("line h1g3 a2a1q\nplay uci")
            self.set_up(program, fen)
            program.play(move + letter)
            self.finish_game(program, result)

    def test_stalemate_by_either_side(self):
        for fen, move in (("7k/8/6K1/8/8/8/8/5Q2 w - - 0 1", "f1f7"), ("8/8/8/8/8/1k6/3q4/K7 w - - 0 1", "a1b1")):
            program = self.begin("line a1b1 b3a3 b1a1 d2c2\nplay uci")
            self.set_up(program, fen)
            if move == "a1b1":
                self.reply_to(program, move, "b3a3")
                move = "b1a1"
            program.drag(move)
            self.finish_game(program, "1/2-1/2 {Stalemate}")

    def set_up(self, program, fen):
        """Puts the person on move in a position of their own."""
        program.show_fen()
        program.enter_fen(fen)
        program.choose("Mode", "Human - human")
        program.choose("Mode", "Human - computer")

    def test_ponder_reaches_the_engine(self):
        program = self.begin("option name Ponder type check default false\nponder\n"
                             "line e2e4 e7e5 g1f3 b8c6 f1c4 g8f6\nplay uci")
        program.choose("Options", "Ponder")
        program.wait_for_log("0 ponder on")
        self.reply_to(program, "e2e4", "e7e5")
        self.expect_sent(program, r"position .* moves e2e4 e7e5 g1f3\ngo .*ponder.*\n$")
        self.reply_to(program, "g1f3", "b8c6")  # what it has thought about
        self.expect_sent(program, r"moves e2e4 e7e5 g1f3\ngo .*ponder.*\n(isready\n)?ponderhit\n")
        self.expect_sent(program, r"moves e2e4 e7e5 g1f3 b8c6 f1c4\ngo .*ponder.*\n$")
        replies = len(program.moves_from_referee())
        program.drag("d2d4")  # something else
        program.wait_for_log("-----> move", replies + 1)
        self.expect_sent(program, r"f1c4\ngo .*ponder.*\nstop\n(.*\n)*position .* b8c6 d2d4\n(isready\n)?go ")
        program.choose("Options", "Ponder")
        program.wait_for_log("0 ponder off")
        program.close()

    def expect_sent(self, program, pattern):
        wait_until(lambda: re.search(pattern, program.read("partner.sent")),
                   f"{pattern!r} at the engine, not {program.read('partner.sent')[-400:]!r}")

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
        """The person plays a line that fits any defence, then lets the engine move for them."""
        program = self.start()
        program.debug_on()
        program.load_engine(STOCKFISH, "autodetect", "Stockfish")
        program.choose("Mode", "Human - computer")
        program.choose("Options", "Ponder")
        program.choose("View", "Show Engine Output")
        text = program.show_pgn().get_text_iface()
        program.drag("g1f3")
        program.wait_for_log("-----> move", 1, 60)
        program.drag("b1c3")
        program.wait_for_log("-----> move", 2, 60)
        for moves in range(3, 19):
            program.choose("Mode", "Start thinking")
            program.wait_for_log("-----> move", moves, 60)
        wait_until(lambda: text.get_text(0, -1).count("[%depth ") == 18, "the engine's words on its moves")
        if PGN_EXTRACT:
            self.assertEqual(len(positions_by_pgn_extract(text.get_text(0, -1))), 21)
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
        for moves in range(2, 7):
            program.choose("Mode", "Start thinking")
            program.wait_for_log("-----> move", moves, 60)
        program.close()


main()
