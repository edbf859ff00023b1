"""Two people at the board: moves by mouse, set-up, navigation, flipping, every mode without an engine."""
from driver import Journey, click_at, key, main, place, press, wait_until


class HumanGame(Journey):
    def setUp(self):
        self.program = self.start()
        self.program.debug_on()

    def fen(self):
        """The position that the FEN entry shows."""
        entry = self.program.wait_for("text", root=self.program.window)
        return entry.get_text_iface().get_text(0, -1)

    def show_fen(self):
        self.program.choose("View", "Show FEN")
        self.program.wait_for("text", root=self.program.window)

    def expect_fen(self, fen):
        wait_until(lambda: self.fen() == fen, f"{fen}, not {self.fen()}")

    def test_a_game_by_drags(self):
        self.show_fen()
        # Castling both ways, en passant, a capture, and an illegal drag that snaps back.
        self.program.play("e2e4", "d7d5", "e4e5", "f7f5", "e5f6", "b8c6", "g1f3", "c8g4", "f1e2", "d8d7", "e1g1", "e8c8")
        self.expect_fen("2kr1bnr/pppqp1pp/2n2P2/3p4/6b1/5N2/PPPPBPPP/RNBQ1RK1 w - - 7 7")
        before = len(self.program.log())
        self.program.drag("f3f6")
        self.program.drag("a2a4")
        self.program.wait_for_log("usermove a2a4")
        self.assertFalse([line for line in self.program.log()[before:] if "f3f6" in line])
        self.program.screenshot("human-game")
        self.program.close()

    def test_click_and_click(self):
        self.program.click_square("g1")
        self.program.screenshot("selected-knight")
        self.program.click_square("f3")
        self.program.wait_for_log("usermove g1f3")
        self.program.close()

    def test_promotion_to_each_piece(self):
        self.show_fen()
        for column, letter in enumerate("qrbn"):
            entry = self.program.wait_for("text", root=self.program.window)
            entry.get_editable_text_iface().set_text_contents("8/P3k3/8/8/8/8/8/4K3 w - - 0 1")
            press(self.program.wait_for("push button", "OK", self.program.window))
            self.expect_fen("8/P3k3/8/8/8/8/8/4K3 w - - 0 1")
            self.program.drag("a7a8")
            dialog = wait_until(lambda: self.program.find("dialog"), "the promotion chooser")
            area = wait_until(lambda: self.program.find("drawing area", root=dialog), "its images")
            box = place(area)
            click_at(box.x + box.width * (1 + 2 * (column % 2)) // 4, box.y + box.height * (1 + 2 * (column // 2)) // 4)
            self.program.wait_for_log("usermove a7a8" + letter)
            wait_until(lambda: self.program.find("dialog") is None, "the end of the chooser")
        self.program.close()

    def test_set_up_then_play(self):
        self.show_fen()
        self.program.choose("Mode", "Setup")
        self.program.click_square("d8")
        self.expect_fen("rnb1kbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w - - 0 1")
        self.program.drag("a2b5")
        self.program.wait_for_log("0 setboard rnb1kbnr/pppppppp/8/1P6/8/8/1PPPPPPP/RNBQKBNR b - - 0 1")
        self.program.choose("Mode", "Human - human")
        self.program.wait_for_log("0 human_human")
        self.program.play("a7a6", "b5a6")
        self.expect_fen("rnb1kbnr/1ppppppp/P7/8/8/8/1PPPPPPP/RNBQKBNR b - - 0 2")
        self.program.close()

    def test_navigation_through_a_variation(self):
        self.show_fen()
        self.program.play("e2e4", "e7e5")
        key("Left")
        self.program.wait_for_log("0 setboard rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq - 0 1")
        self.program.play("c7c5", "g1f3")
        key("Home")
        self.expect_fen("rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1")
        key("End")
        self.expect_fen("rnbqkbnr/pppp1ppp/8/4p3/4P3/8/PPPP1PPP/RNBQKBNR w KQkq - 0 2")
        back = self.program.wait_for("push button", "One move back")
        press(back)
        self.expect_fen("rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq - 0 1")
        self.program.close()

    def test_flipped_board(self):
        self.program.choose("View", "Flip View")
        before = self.program.board()
        self.program.drag("e2e4", flipped=True)
        self.program.wait_for_log("usermove e2e4")
        self.assertGreater(before.width, 0)
        self.program.screenshot("flipped")
        self.program.close()

    def test_modes_without_an_engine(self):
        self.program.choose("Mode", "Learn Opening")
        dialog = self.program.dialog("Learn Openings Hints")
        self.program.press_button("CANCEL", dialog)
        self.program.wait_for_log("0 learnopenings 0")
        self.program.choose("Mode", "Tournament")
        self.program.answer_message("No tournament loaded")
        wait_until(lambda: self.program.is_checked("Mode", "Human - human"), "the fall back to two people")
        self.program.close()


main()
