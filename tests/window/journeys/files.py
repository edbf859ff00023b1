"""Games and positions from and to files, through the choosers; wrong files everywhere."""
import glob
import os
import subprocess
import unittest

from driver import (BINARY, PGN_EXTRACT, SOURCE, Journey, click_on, key, main, set_text, wait_until, walk,
                    xdotool)

REAL_GAMES = os.path.join(SOURCE, "build", "games")

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

    def load_first(self, item, path):
        """Takes the first game or position of a file."""
        self.load(item, path)
        self.program.press_button("OK", self.program.dialog(item.replace("Load", "Choose").title()))
        self.program.wait_until_closed("dialog")

    def test_load_the_second_game_step_and_save(self):
        program = self.program
        self.load("Load game", program.write("games.pgn", GAMES))
        program.leave("dialog", "Choose Game")
        self.assertEqual([line for line in program.log() if "setboard" in line], [])
        self.load("Load game", program.path("games.pgn"))
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

    def test_positions_one_after_the_other(self):
        program = self.program
        self.load_first("Load position", program.write("positions.epd", POSITIONS))
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
        program.wait_until_closed("alert")
        program.leave("file chooser")
        self.assertEqual(program.read("old.fen"), "old")
        program.close()

    def test_a_chooser_opens_in_the_folder_used_last(self):
        program = self.program
        os.mkdir(program.path("folder"))
        self.load_first("Load position", program.write("folder/positions.epd", POSITIONS))
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
        for name in ("pipe.pgn", "pipe.fen"):
            os.mkfifo(program.path(name))
            self.drop(program.path(name))
            program.answer_message(name + ": not a regular file")
        program.close()

    @unittest.skipUnless(os.path.isdir(REAL_GAMES) and PGN_EXTRACT, "no games to be had")
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
        set_text(program.wait_for("text", root=program.window), "rnbqkbnr/8/8/8/8/8/8/RNBQ1BNR w - - 0 1")
        click_on(program.wait_for("push button", "OK", program.window))
        program.answer_message("error number of kings")
        program.play("e2e4")
        program.close()


main()
