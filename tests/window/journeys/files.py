"""Games and positions from and to files, through the choosers; wrong files everywhere."""
import os

from driver import Journey, click_at, click_on, key, main, wait_until, walk

GAMES = """[Event "One"]
[White "Ann"]
[Black "Bob"]
[Result "1-0"]

1. e4 e5 2. Bc4 Nc6 3. Qh5 Nf6 $2 {a blunder} (3... g6) 4. Qxf7# 1-0

[Event "Two"]
[White "Cid"]
[Black "Dora"]
[SetUp "1"]
[FEN "4k3/8/8/8/8/8/4P3/4K3 b - - 0 30"]
[Result "*"]

30... Kd7 31. e4 *

"""

POSITIONS = """4k3/8/8/8/8/8/4P3/4K3 w - - bm e4; id "first";

4k3/4p3/8/8/8/8/8/4K3 b - - 0 1
nonsense
8/8/8/8/8/8/8/8 w - - 0 1
"""


class Files(Journey):
    def setUp(self):
        self.program = self.start()
        self.program.debug_on()

    def load(self, item, path):
        self.program.choose("File", item)
        self.program.choose_file(path)

    def test_load_the_second_game_step_and_save(self):
        program = self.program
        path = program.write("games.pgn", GAMES)
        self.load("Load game", path)
        dialog = program.dialog("Choose Game")
        wait_until(lambda: any(node.get_name() == "Cid" for node in walk(dialog)), "the second game's row")
        key("Down", "Return")
        program.wait_for_log("0 setboard 4k3/8/8/8/8/8/4P3/4K3 b - - 0 30")
        key("End")
        program.wait_for_log("0 setboard 8/3k4/8/8/4P3/8/8/4K3 b - - 0 31")
        program.choose("File", "Save game")
        program.choose_file(program.path("saved.pgn"), "Save")
        wait_until(lambda: "30... Kd7 31.e4" in program.read("saved.pgn"), "the saved game")
        self.assertIn('[White "Cid"]', program.read("saved.pgn"))
        program.close()

    def test_a_click_into_the_pgn_text_goes_there(self):
        program = self.program
        self.load("Load game", program.write("games.pgn", GAMES))
        program.press_button("OK", program.dialog("Choose Game"))
        program.wait_for_log("0 setboard")
        program.choose("View", "Show PGN")
        text = program.wait_for("text", root=program.wait_for("frame", "PGN"))
        content = wait_until(lambda: text.get_text_iface().get_text(0, -1), "the text")
        offset = content.index("Nf6")
        box = text.get_text_iface().get_character_extents(offset, 0)
        click_at(box.x + 2, box.y + box.height // 2)
        program.wait_for_log("0 setboard r1bqkb1r/pppp1ppp/2n2n2/4p2Q/2B1P3/8/PPPP1PPP/RNB1K1NR w KQkq - 4 4")
        program.close()

    def test_positions_one_after_the_other(self):
        program = self.program
        self.load("Load position", program.write("positions.epd", POSITIONS))
        program.press_button("OK", program.dialog("Choose Position"))
        program.wait_for_log("0 setboard 4k3/8/8/8/8/8/4P3/4K3 w - - 0 1")
        key("ctrl+n")
        program.wait_for_log("0 setboard 4k3/4p3/8/8/8/8/8/4K3 b - - 0 1")
        key("ctrl+n")  # nonsense: nothing happens
        key("ctrl+n")  # no kings: told to the person
        program.answer_message("error number of kings")
        key("ctrl+n")  # there is no fifth line
        for _ in range(3):
            key("ctrl+p")
        program.wait_for_log("0 setboard 4k3/8/8/8/8/8/4P3/4K3 w - - 0 1", 2)
        program.choose("File", "Save position")
        program.choose_file(program.path("saved.fen"), "Save")
        wait_until(lambda: program.read("saved.fen") == "4k3/8/8/8/8/8/4P3/4K3 w - - 0 1\n", "the saved position")
        program.close()

    def test_cancel_everywhere(self):
        program = self.program
        path = program.write("games.pgn", GAMES)
        for item in ["Load game", "Save game", "Load position", "Save position", "Polyglot book"]:
            program.choose("File", item)
            program.wait_for("file chooser")
            key("Escape")
            wait_until(lambda: program.find("file chooser") is None, "the end of the chooser")
        before = len(program.log())
        self.load("Load game", path)
        program.dialog("Choose Game")
        key("Escape")
        wait_until(lambda: program.find("dialog") is None, "the end of the list")
        program.play("e2e4")
        self.assertEqual([line for line in program.log()[before:] if "setboard" in line], [])
        program.close()

    def test_wrong_files(self):
        program = self.program
        with open(program.path("binary.pgn"), "wb") as file:
            file.write(bytes(range(256)) * 100)
        program.write("empty.pgn", "")
        program.write("bracket.pgn", "[")
        for name in ["binary.pgn", "empty.pgn", "bracket.pgn"]:
            self.load("Load game", program.path(name))
            dialog = program.dialog("Choose Game")
            program.press_button("OK", dialog)
            wait_until(lambda: program.find("dialog") is None, "the end of the list")
        for name in ["binary.pgn", "empty.pgn"]:
            os.rename(program.path(name), program.path(name + ".fen"))
            self.load("Load position", program.path(name + ".fen"))
            program.press_button("OK", program.dialog("Choose Position"))
            wait_until(lambda: program.find("dialog") is None, "the end of the list")
        program.play("e2e4")
        program.close()

    def test_a_bad_fen_is_reported_and_changes_nothing(self):
        program = self.program
        program.choose("View", "Show FEN")
        entry = program.wait_for("text", root=program.window)
        entry.get_editable_text_iface().set_text_contents("rnbqkbnr/8/8/8/8/8/8/RNBQ1BNR w - - 0 1")
        click_on(program.wait_for("push button", "OK", program.window))
        program.answer_message("error number of kings")
        program.play("e2e4")
        program.close()


main()
