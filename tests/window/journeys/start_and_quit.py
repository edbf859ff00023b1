"""The window opens, shows what it should, and goes only when the referee has answered."""
import os
import subprocess

from driver import PROGRAM, Atspi, Journey, has_state, main, wait_until


class StartAndQuit(Journey):
    def test_first_sight(self):
        program = self.start()
        self.assertEqual(program.window.get_name(), "Velmora (no engine loaded)")
        for item in ("Start thinking", "Human - computer", "Analysis"):
            self.assertFalse(has_state(program.menu_item("Mode", item), Atspi.StateType.SENSITIVE), item)
        self.assertTrue(program.is_checked("Mode", "Human - human"))
        program.screenshot("first-sight")
        program.close()
        self.assertFalse(os.path.exists(program.path("interface.log")))

    def test_a_file_to_start_with_and_the_size_of_the_board(self):
        program = self.start("-s", "400", "a game.pgn",
                             files=[("a game.pgn", '[SetUp "1"]\n[FEN "4k3/8/8/8/8/8/4P3/4K2R w K - 0 1"]\n\n1. e4 *\n')])
        program.press_button("OK", program.wait_for("dialog", "Choose Game"))
        wait_until(lambda: program.square("h1").get_name() == "h1, white rook" and
                   program.square("a1").get_name() == "a1, empty", "the game's position")
        self.assertEqual(program.board()[2] // 8 * 8, 400)
        self.assertEqual(program.read("stderr.txt"), "boardsize=400\n")
        program.close()

    def test_questions_are_answered_without_a_window(self):
        for argument, answer in [("--version", "Velmora GUI 1.14\n"), ("-h", "Usage: velmora [-s SIZE] [FILE]\n")]:
            run = subprocess.run([PROGRAM, argument], env={}, capture_output=True, text=True, check=True)
            self.assertTrue(run.stdout.startswith(answer), run.stdout)
            self.assertEqual(run.stderr, "")

    def test_leaving_by_the_menu_while_the_referee_waits_for_an_engine(self):
        program = self.start()
        program.debug_on()
        program.choose("Engine", "Load engine...")
        program.choose_file(program.scripted_engine("slow", "until uci\nwait 2000\nanswer uciok\n"))
        program.press_button("OK", program.wait_for("dialog", "Protocol"))
        program.wait_for_log("0 load 0 filename")
        program.wait_for_end(lambda: program.choose("File", "Quit"))
        self.assertIn("0 quit", program.read("interface.log"))


main()
