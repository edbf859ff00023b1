"""A person against an engine: whole games to every kind of end, crashes, pondering, and the archive."""
import os
import re
import unittest

from driver import PGN_EXTRACT, Journey, accepted_by_pgn_extract, main, positions_by_pgn_extract, text_of, wait_until

STOCKFISH = "/usr/games/stockfish"


# The engine's script, where the game begins, the moves of both sides, what the referee says at the end.
ENDS = [
    ("line f2f3 e7e5 g2g4 d8h4\ninfo 3\nplay uci", None, "f2f3 e7e5 g2g4", "0-1 {Black mates}"),
    ("line e2e4 e7e5 d1h5 b8c6 f1c4 g8f6\nplay uci", None, "e2e4 e7e5 d1h5 b8c6 f1c4 g8f6 h5f7", "1-0 {White mates}"),
    ("line a7a8n a2a1r a8c7 a1c1\nat 3 answer resign\nplay uci", "8/P5k1/8/8/8/8/p4K2/8 w - - 0 1",
     "a7a8n a2a1r a8c7 a1c1 c7d5", "1-0 {black resigns}"),
    ("play uci", "4k3/P7/4K3/8/8/8/8/8 w - - 0 1", "a7a8q", "1-0 {White mates}"),
    ("line h1g3 a2a1q\nplay uci", "8/8/8/8/8/4k3/p7/4K2N w - - 0 1", "h1g3", "0-1 {Black mates}"),
    ("play uci", "7k/8/6K1/8/8/8/8/5Q2 w - - 0 1", "f1f7", "1/2-1/2 {Stalemate}"),
    ("line a1b1 b3a3 b1a1 d2c2\nplay uci", "8/8/8/8/8/1k6/3q4/K7 w - - 0 1", "a1b1 b3a3 b1a1", "1/2-1/2 {Stalemate}"),
    ("line e2e4 e7e5\nat 2 answer resign\nplay xboard", None, "e2e4 e7e5 g1f3", "1-0 {black resigns}"),
    ("at 1 answer bestmove e2e5\nplay uci", None, "e2e4", "1-0 {illegal move: e2e5}"),
]


class EngineGame(Journey):
    def begin(self, script):
        program = self.start()
        program.debug_on()
        path = program.scripted_engine("partner", "name Partner\n" + script)
        program.load_engine(path, "xboard v2" if script.endswith("xboard") else "uci", "Partner")
        program.wait_for_title("Partner")
        program.choose("Mode", "Human - computer")
        program.wait_for_log("0 playother")
        return program

    def play(self, program, moves):
        """The person's moves and the engine's answers."""
        for number, move in enumerate(moves.split()):
            if number % 2 == 0:
                program.play(move)
            else:
                program.wait_for_log("-----> move " + move)

    def test_every_end_of_a_game(self):
        for script, fen, moves, result in ENDS:
            program = self.begin(script)
            if fen:
                program.show_fen()
                program.enter_fen(fen)
                program.choose("Mode", "Human - human")
                program.choose("Mode", "Human - computer")
            self.play(program, moves)
            program.wait_for_log("-----> " + result)
            program.wait_for("alert")
            program.screenshot("result")
            program.answer_message(result.split()[0])
            wait_until(lambda: result.split(None, 1)[1] in program.archive(), f"{result} in the archive")
            self.assertIn(accepted_by_pgn_extract(program.path("Velmora battles.pgn")), (None, 1))
            program.close()

    def test_ponder_reaches_the_engine(self):
        program = self.begin("option name Ponder type check default false\nponder\n"
                             "line e2e4 e7e5 g1f3 b8c6 f1c4 g8f6\nplay uci")
        program.choose("Options", "Ponder")
        program.wait_for_log("0 ponder on")
        self.play(program, "e2e4 e7e5")
        self.expect_sent(program, r"position .* moves e2e4 e7e5 g1f3\ngo .*ponder.*\n$")
        self.play(program, "g1f3 b8c6")  # what it has thought about
        self.expect_sent(program, r"moves e2e4 e7e5 g1f3\ngo .*ponder.*\n(isready\n)?ponderhit\n")
        program.choose("Options", "Ponder")
        program.wait_for_log("0 ponder off")
        program.close()

    def expect_sent(self, program, pattern):
        wait_until(lambda: re.search(pattern, program.read("partner.sent")),
                   f"{pattern!r} at the engine, not {program.read('partner.sent')[-400:]!r}")

    @unittest.skipUnless(os.path.exists(STOCKFISH), "stockfish is not installed")
    def test_twenty_plies_against_stockfish(self):
        """The person plays a line that fits any defence, then lets the engine move for them."""
        program = self.start()
        program.debug_on()
        program.load_engine(STOCKFISH, "autodetect", "Stockfish")
        program.choose("Mode", "Human - computer")
        program.choose("Options", "Ponder")
        program.choose("View", "Show Engine Output")
        text = program.show_pgn()
        program.drag("g1f3")
        program.wait_for_log("-----> move", 1, 60)
        program.drag("b1c3")
        program.wait_for_log("-----> move", 2, 60)
        for moves in range(3, 19):
            program.choose("Mode", "Start thinking")
            program.wait_for_log("-----> move", moves, 60)
        wait_until(lambda: text_of(text).count("[%depth ") == 18, "the engine's words on its moves")
        if PGN_EXTRACT:
            self.assertEqual(len(positions_by_pgn_extract(text_of(text))), 21)
        program.screenshot("stockfish-game")
        program.close()


main()
