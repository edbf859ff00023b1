"""A person takes a move back, leaves the game for a new one, takes it up again and resigns it."""
from driver import Journey, key, main, text_of, wait_until, walk


class Table(Journey):
    def notice(self, program, beginning):
        return wait_until(lambda: next(n for n in walk(program.window) if n.get_name().startswith(beginning)),
                          f"the text {beginning!r}")

    def test_taken_back_left_taken_up_and_resigned(self):
        program = self.start("-s", "400")
        program.debug_on()
        path = program.scripted_engine("quick", "name Quick\nline e2e4 e7e5 g1f3 b8c6\nline e2e4 e7e5 d2d4 e5d4\nplay uci")
        program.choose("Engine", "Load engine...")
        program.choose_file(path)
        program.press_button("OK", program.wait_for("dialog", "Protocol"))
        wait_until(lambda: program.window.get_name() == "Quick", "the engine's name in the title")
        program.choose("Mode", "Human - computer")
        program.wait_for_log("playother")
        program.play("e2e4")
        program.wait_for_log("-----> move e7e5")
        program.play("g1f3")
        program.wait_for_log("-----> move b8c6")
        wait_until(lambda: program.square("c6").get_name() == "c6, black knight", "the answer on the board")
        key("ctrl+z")
        self.notice(program, "Your move and the answer to it are taken back.")
        wait_until(lambda: program.square("f3").get_name() == "f3, empty", "the move to be taken back")
        program.screenshot("taken-back")
        program.play("d2d4")
        program.wait_for_log("-----> move e5d4")
        program.screenshot("played-on")

        # Left for another game, and found again.
        program.choose("File", "New game")
        wait_until(lambda: program.square("d4").get_name() == "d4, empty", "the new game")
        program.choose("Game", "Earlier games...")
        dialog = program.wait_for("dialog", "Earlier games")
        program.screenshot("earlier-games")
        program.press_button("Take up", dialog)
        wait_until(lambda: program.square("d4").get_name() == "d4, black pawn", "the earlier game")
        program.wait_for_log("setgame")
        # A move meanwhile, while the engine thinks for good.
        program.play("f1c4")
        program.choose("Game", "Resign")
        program.answer_message("0-1")
        text = program.show_text("Show PGN", "PGN")
        record = "1.e4 e5 2.d4 ( 2.Nf3 Nc6) exd4 3.Bc4"
        wait_until(lambda: record in " ".join(text_of(text).split()), lambda: record + " in " + text_of(text))
        archive = program.read("Velmora battles.pgn")
        self.assertEqual(archive.count("[Event "), 1)
        self.assertIn('[Termination "normal"]', archive)
        self.assertIn("{white resigns}", archive)
        self.assertIn(record, " ".join(archive.split()))
        program.close()


main()
