"""Two people at the board: moves by mouse, set-up, navigation, flipping, every mode without an engine."""
import re
import time

from driver import (PGN_EXTRACT, Journey, click_on_character, key, main, positions_by_pgn_extract, press, text_of,
                    wait_until)


class HumanGame(Journey):
    def setUp(self):
        self.program = self.start()
        self.program.debug_on()

    def test_a_whole_game_to_mate(self):
        """Castling to both sides, en passant, a promotion, and illegal drags that snap back on the way."""
        program = self.program
        program.show_fen()
        text = program.show_pgn()
        moves = ("e2e4 d7d5 e4e5 f7f5 e5f6 b8c6 g1f3 c8g4 f1e2 d8d7 e1g1 e8c8 f6g7 a7a6 g7h8q c6e5 f3e5 d7c6 e2g4 "
                 "c6e6 g4e6 d8d7 h8g8 c8d8 g8f8").split()
        shown = [program.fen()]
        for move in moves:
            program.play(move)
            wait_until(lambda: program.fen() != shown[-1], "the position after " + move)
            shown.append(program.fen())
            if move in ("e8c8", "g4e6"):
                # Not the side's turn, no such move, off the board: nothing is sent and the piece snaps back.
                for illegal in ("h7h6" if move == "g4e6" else "f3f7", "a1a5", "b1b1"):
                    program.drag(illegal)
                self.assertEqual(program.fen(), shown[-1])
                self.assertTrue(program.square("a1").get_name().endswith("white rook"))
        self.assertEqual(shown[-1], "3k1Q2/1pprp2p/p3B3/3pN3/8/8/PPPP1PPP/RNBQ1RK1 b - - 0 13")
        wait_until(lambda: "13.Qxf8#" in text_of(text), "the mate in the record")
        program.screenshot("human-game")
        program.drag("d8e8")
        program.drag("d7d6")
        # The referee has got every move and nothing else.
        for name, mark in (("interface.log", "-->"), ("manager.log", "->")):
            line = r"(?m)^\d{5}\.\d{3} interface " + mark + r" 0 usermove (\S+)$"
            wait_until(lambda n=name, l=line: re.findall(l, program.read(n)) == moves, name)
        if PGN_EXTRACT:
            self.assertEqual(positions_by_pgn_extract(text_of(text)), [fen.split()[:3] for fen in shown])
        program.close()

    def test_set_up_then_play(self):
        program = self.program
        program.show_fen()
        program.choose("Mode", "Setup")
        program.click_square("d8")
        program.expect_fen("rnb1kbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w - - 0 1")
        program.drag("a2b5")
        program.wait_for_log("0 setboard rnb1kbnr/pppppppp/8/1P6/8/8/1PPPPPPP/RNBQKBNR b - - 0 1")
        program.click_square("e4")
        program.wait_for("dialog")
        program.screenshot("setup-chooser")
        program.choose_piece(1, 3, 3, 4)
        program.expect_fen("rnb1kbnr/pppppppp/8/1P6/4q3/8/1PPPPPPP/RNBQKBNR w - - 0 1")
        program.started = time.monotonic()  # no click counts in the half second after the chooser
        program.choose("Mode", "Human - human")
        program.wait_for_log("0 human_human")
        program.play("d2d3", "a7a6", "b5a6")
        program.expect_fen("rnb1kbnr/1ppppppp/P7/8/4q3/3P4/1PP1PPPP/RNBQKBNR b - - 0 2")
        program.close()

    def test_navigation_through_a_variation(self):
        program = self.program
        start = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1"
        after_e4 = "rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq - 0 1"
        after_e5 = "rnbqkbnr/pppp1ppp/8/4p3/4P3/8/PPPP1PPP/RNBQKBNR w KQkq - 0 2"
        after_nf3 = "rnbqkbnr/pp1ppppp/8/2p5/4P3/5N2/PPPP1PPP/RNBQKB1R b KQkq - 1 2"
        program.show_fen()
        program.play("e2e4", "e7e5")
        key("Left")
        program.wait_for_log("0 setboard " + after_e4)
        program.play("c7c5", "g1f3")
        for step, fen in (("Home", start), ("End", after_e5), ("Left", after_e4), ("Right", after_e5)):
            key(step)
            program.expect_fen(fen)
        for button, fen in (("To the start of the game", start), ("One move forward", after_e4),
                            ("To the end of the game", after_e5), ("One move back", after_e4)):
            press(program.wait_for("push button", button))
            program.expect_fen(fen)
        text = program.show_pgn()
        content = wait_until(lambda: text_of(text), "the text")
        self.assertIn("1.e4 e5 ( 1... c5 2.Nf3)", " ".join(content.split()))
        click_on_character(text, content.index("2.Nf3") + 3)
        program.expect_fen(after_nf3)
        program.wait_for_log("0 setboard " + after_nf3)
        program.screenshot("variation")
        program.close()

    def test_flipped_board(self):
        self.program.choose("View", "Flip View")
        self.program.drag("e2e4", flipped=True)
        self.program.wait_for_log("usermove e2e4")
        self.program.screenshot("flipped")
        self.program.close()

    def test_every_mode_without_an_engine(self):
        program = self.program
        for item in ("Human - computer", "Analysis", "Start thinking"):
            self.assertFalse(program.is_sensitive("Mode", item), item)
        program.play("e2e4")
        for count, answer in enumerate(("CANCEL", "OK"), 1):
            program.choose("Mode", "Learn Opening")
            dialog = program.dialog("Learn Openings Hints")
            for box in ("white", "black"):
                press(program.wait_for("check box", f"hint {box} moves", dialog))
            program.press_button(answer, dialog)
            program.wait_for_log("0 learnopenings 0", count)
            program.wait_for_mode("Human - human")
        program.choose("Mode", "Learn Opening")
        dialog = program.dialog("Learn Openings Hints")
        program.screenshot("learn-dialog")
        program.press_button("OK", dialog)
        program.answer_message("use menu 'File' to load a Polyglot book")
        program.wait_for_mode("Human - human")
        program.choose("Mode", "Tournament")
        program.answer_message("No tournament loaded")
        program.wait_for_mode("Human - human")
        program.choose("Mode", "Setup")
        program.choose("Mode", "Human - human")
        program.wait_for_log("0 setboard rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b - - 0 1")
        program.play("e7e5")
        program.choose("File", "New game")
        program.wait_for_log("0 new")
        program.play("d2d4")
        program.close()


class Sizes(Journey):
    def test_from_360_to_1200_pixels(self):
        """Every size shows the whole board and takes moves where it shows them."""
        program = self.start("-s", "360")
        program.debug_on()
        moves = iter("e2e4 e7e5 g1f3 b8c6 f1b5 a7a6 b5a4 g8f6".split())
        for size in (360, 480, 613, 1000, 1190):
            program.resize(size)
            program.play(next(moves))
            program.screenshot(f"size-{size}")
        box = program.board()
        self.assertEqual(box.width // 8, box.height // 8)
        self.assertGreater(box.width, 1100)
        program.close()
        large = self.start("-s", "1200")
        large.debug_on()
        self.assertEqual(large.board().width // 8 * 8, 1200)
        large.play("e2e4", "e7e5")
        large.close()


main()
