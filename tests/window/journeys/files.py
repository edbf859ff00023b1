"""Games and positions from and to files, through the choosers; wrong files everywhere."""
import glob
import os
import subprocess
import unittest

from driver import (BINARY, SOURCE, Journey, click_at, click_on, key, main, wait_until, walk,
                    xdotool)

REAL_GAMES = os.path.join(SOURCE, "build", "games")
PGN_EXTRACT = "/usr/games/pgn-extract"

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

    def test_saves_that_fail_are_told_and_leave_the_file_whole(self):
        program = self.program
        for name in ["full.pgn", "full.fen"]:
            os.symlink("/dev/full", program.path(name))
        program.play("e2e4")
        program.choose("File", "Save game")
        program.choose_file(program.path("full.pgn"), "Save")
        program.answer_message("No space left on device")
        # A position replaces what is there, which is asked first.
        for name, answer in [("full.fen", "Replace"), ("old.fen", "Cancel")]:
            if answer == "Cancel":
                program.write(name, "old")
            program.choose("File", "Save position")
            program.choose_file(program.path(name), "Save", lambda: program.find("alert"))
            program.press_button(answer, program.find("alert"))
            if answer == "Replace":
                program.answer_message("Invalid argument")
        wait_until(lambda: program.find("alert") is None, "the end of the question")
        key("Escape")
        wait_until(lambda: program.find("file chooser") is None, "the end of the chooser")
        self.assertEqual(program.read("old.fen"), "old")
        program.close()

    def test_a_chooser_opens_in_the_folder_used_last(self):
        program = self.program
        os.mkdir(program.path("folder"))
        self.load("Load position", program.write("folder/positions.epd", POSITIONS))
        program.press_button("OK", program.dialog("Choose Position"))
        program.wait_for_log("0 setboard")
        program.choose("File", "Save position")
        program.choose_file("here.fen", "Save")
        wait_until(lambda: program.read("folder/here.fen"), "the position beside the file that was loaded")
        program.close()

    def drop(self, path):
        """Drags a file from another program's window onto the board."""
        with subprocess.Popen([os.path.join(BINARY, "tests", "support", "drag_source"), path]) as source:
            def titled(title):
                return wait_until(lambda: subprocess.run(
                    ["xdotool", "search", "--onlyvisible", "--pid", str(source.pid), "--name", title],
                    capture_output=True, text=True, check=False).stdout.split(), f"the other window {title!r}")[0]

            number = titled("Drag from here")
            xdotool("windowmove", number, 900, 600)
            box = self.program.board()
            x, y = box.x + box.width // 2, box.y + box.height // 2
            wait_until(lambda: "Position: 90" in subprocess.run(
                ["xdotool", "getwindowgeometry", number], capture_output=True, text=True,
                check=True).stdout, "the other window's place")
            xdotool("mousemove", 1000, 700, "mousedown", 1)
            for step in range(1, 11):
                xdotool("mousemove", 1000 + (x - 1000) * step // 10, 700 + (y - 700) * step // 10, "sleep", 0.02)
            titled("Drop it now")
            xdotool("mouseup", 1)
            # The drop has ended when the other program says so, whatever dialog it has opened here.
            source.wait(20)

    def test_dropped_files_are_opened_by_the_flow_of_their_kind(self):
        program = self.program
        self.drop(program.write("games.PGN", GAMES))
        program.press_button("OK", program.dialog("Choose Game"))
        program.wait_for_log("0 setboard rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1")
        self.drop(program.write("positions.epd", POSITIONS))
        program.press_button("OK", program.dialog("Choose Position"))
        program.wait_for_log("0 setboard 4k3/8/8/8/8/8/4P3/4K3 w - - 0 1")
        self.drop(program.write("book.bin", ""))
        program.wait_for_log("0 polyglotbook " + program.path("book.bin"))
        program.close()

    def test_texts_are_copied_and_pasted_by_the_keys(self):
        program = self.program
        self.load("Load game", program.write("games.pgn", GAMES))
        program.press_button("OK", program.dialog("Choose Game"))
        program.wait_for_log("0 setboard")
        program.choose("View", "Show PGN")
        click_on(program.wait_for("text", root=program.wait_for("frame", "PGN")))
        key("ctrl+a", "ctrl+c")
        program.choose("View", "Show Comment Editor")
        comment = program.wait_for("text", root=program.wait_for("frame", "Comment"))
        click_on(comment)
        key("ctrl+v")
        wait_until(lambda: '[White "Ann"]' in comment.get_text_iface().get_text(0, -1), "the game as a comment")
        program.choose("View", "Show FEN")
        click_on(program.wait_for("text", root=program.window))
        key("ctrl+a", "ctrl+c")
        click_on(comment)
        key("ctrl+a", "ctrl+v")
        wait_until(lambda: comment.get_text_iface().get_text(0, -1).endswith("RNBQKBNR w KQkq - 0 1"),
                   "the FEN as a comment")
        program.close()

    @unittest.skipUnless(os.path.isdir(REAL_GAMES) and os.path.exists(PGN_EXTRACT), "no games to be had")
    def test_games_of_another_program_end_where_it_says(self):
        program = self.program
        files = sorted(glob.glob(os.path.join(REAL_GAMES, "*chess-studies-2*"))) + \
            [os.path.join(REAL_GAMES, "mate_in_4.pgn")]
        for count, path in enumerate(files, 1):
            self.load("Load game", path)
            program.dialog("Choose Game")
            key("Down", "Down", "Return")
            program.wait_for_log("0 setboard", 2 * count - 1)
            key("End")
            program.wait_for_log("0 setboard", 2 * count)
            ends = subprocess.run([PGN_EXTRACT, "-s", "-F", "-V", "-C", "-w10000", "--selectonly", "3", path],
                                  capture_output=True, text=True, check=True).stdout
            self.assertIn('{ "' + [line for line in program.log() if "0 setboard" in line][-1].split()[4], ends)
            program.choose("File", "Save game")
            program.choose_file(program.path("saved.pgn"), "Save")
            wait_until(lambda: program.read("saved.pgn").count("[Event ") == count, "the saved game")
        self.assertEqual(count, 2)
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
