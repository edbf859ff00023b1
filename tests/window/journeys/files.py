"""Files that come from outside and go there: dropped by another program, chosen in the toolkit's own dialog."""
import os
import subprocess

from driver import SUPPORT, Journey, key, main, wait_until, walk, window_number, xdotool

GAMES = """[Event "One"]
[White "Ann"]
[Result "1-0"]

1. e4 e5 2. Bc4 Nc6 3. Qh5 Nf6 4. Qxf7# 1-0

[Event "Two"]
[White "Cid"]
[SetUp "1"]
[FEN "4k3/8/8/8/8/8/4P3/4K3 b - - 0 30"]
[Result "*"]

30... Kd7 31. e4 *

"""


class Files(Journey):
    def drop(self, program, path):
        """Drags a file from another program's window onto the board."""
        with subprocess.Popen([os.path.join(SUPPORT, "drag_source"), path]) as source:
            number = window_number(source, "Drag from here")
            xdotool("windowmove", number, 900, 600)
            left, top, width = program.board()
            x, y = left + width // 2, top + width // 2
            wait_until(lambda: "Position: 90" in subprocess.run(
                ["xdotool", "getwindowgeometry", number], capture_output=True, text=True,
                check=True).stdout, "the other window's place")
            xdotool("mousemove", 1000, 700, "mousedown", 1)
            for step in range(1, 11):
                xdotool("mousemove", 1000 + (x - 1000) * step // 10, 700 + (y - 700) * step // 10, "sleep", 0.02)
            window_number(source, "Drop it now")
            xdotool("mouseup", 1)
            # The drop has ended when the other program says so, whatever dialog it has opened here.
            source.wait(20)

    def test_a_game_is_dropped_and_saved(self):
        program = self.start()
        program.debug_on()
        self.drop(program, program.write("games.PGN", GAMES))
        dialog = program.wait_for("dialog", "Choose Game")
        wait_until(lambda: any(node.get_name() == "Cid" for node in walk(dialog)), "the second game's row")
        key("Down", "Return")
        program.wait_for_log("0 setboard 4k3/8/8/8/8/8/4P3/4K3 b - - 0 30")
        program.choose("File", "Save game")
        program.choose_file(program.path("saved.pgn"), "Save")
        wait_until(lambda: "30... Kd7 31.e4" in program.read("saved.pgn"), "the saved game")
        # A second file goes into the folder of the first.
        program.choose("File", "Save position")
        program.choose_file("saved.fen", "Save")
        wait_until(lambda: program.read("saved.fen") == "4k3/8/8/8/8/8/4P3/4K3 b - - 0 30\n", "the saved position")
        program.close()


main()
