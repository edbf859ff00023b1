"""Two people at the board: a whole game by the mouse."""
import re

from driver import Journey, main, text_of, wait_until


class HumanGame(Journey):
    def test_a_whole_game_to_mate(self):
        """Castling to both sides, en passant, a promotion, and illegal drags that snap back on the way."""
        program = self.start("-s", "360")
        program.debug_on()
        moves = ("e2e4 d7d5 e4e5 f7f5 e5f6 b8c6 g1f3 c8g4 f1e2 d8d7 e1g1 e8c8 f6g7 a7a6 g7h8q c6e5 f3e5 d7c6 e2g4 "
                 "c6e6 g4e6 d8d7 h8g8 c8d8 g8f8").split()
        for move in moves:
            program.play(move)
            if move in ("e8c8", "g4e6"):
                # Not the side's turn, no such move, off the board: nothing is sent and the piece snaps back.
                for illegal in ("h7h6" if move == "g4e6" else "f3f7", "a1a5", "b1b1"):
                    program.drag(illegal)
                self.assertEqual(program.square("a1").get_name(), "a1, white rook")
        program.drag("d8e8")
        text = program.show_text("Show PGN", "PGN")
        record = ("1.e4 d5 2.e5 f5 3.exf6 Nc6 4.Nf3 Bg4 5.Be2 Qd7 6.O-O O-O-O 7.fxg7 a6 8.gxh8=Q Ne5 9.Nxe5 Qc6 "
                  "10.Bxg4+ Qe6 11.Bxe6+ Rd7 12.Qxg8 Kd8 13.Qxf8# *")
        wait_until(lambda: " ".join(text_of(text).split()).endswith(record), lambda: record + " in " + text_of(text))
        program.screenshot("human-game")
        # The referee has got every move and nothing else.
        sent = r"(?m)^\d{5}\.\d{3} interface -> 0 usermove (\S+)$"
        wait_until(lambda: re.findall(sent, program.read("manager.log")) == moves, "the moves at the referee")
        program.close()


main()
