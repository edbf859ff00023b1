"""The window opens, shows what it should, and goes only when the referee has answered."""
import os
import shutil
import subprocess
import tempfile

from driver import PROGRAM, Journey, main, press, wait_until


class StartAndQuit(Journey):
    def test_first_sight(self):
        program = self.start()
        self.assertEqual(program.title(), "Velmora (no engine loaded)")
        for menu, item in [("Mode", "Start thinking"), ("Mode", "Human - computer"), ("Mode", "Analysis"),
                           ("Options", "Ponder")]:
            self.assertFalse(program.is_sensitive(menu, item), item)
        self.assertTrue(program.is_sensitive("Mode", "Tournament"))
        self.assertTrue(program.is_checked("Mode", "Human - human"))
        program.screenshot("first-sight")
        self.assertEqual(program.close(), 0)
        self.assertFalse(os.path.exists(program.path("interface.log")))

    def test_board_size(self):
        for argument, size in [("400", 400), ("x", 560)]:
            program = self.start("-s", argument)
            box = program.board()
            self.assertEqual((box.width // 8 * 8, box.height // 8 * 8), (size, size), argument)
            self.assertIn("boardsize=" + (argument if argument != "x" else "0"), program.error_text())
            program.close()

    def test_a_file_to_start_with(self):
        directory = tempfile.mkdtemp(prefix="velmora-files-")
        self.addCleanup(shutil.rmtree, directory)

        def file(name, text):
            path = os.path.join(directory, name)
            with open(path, "w", encoding="utf-8") as out:
                out.write(text)
            return path
        position = "4k3/8/8/8/8/8/4P3/4K2R w K - 0 1"
        game = file("a game.pgn", f'[SetUp "1"]\n[FEN "{position}"]\n\n1. e4 *\n')
        fen = file("one.fen", position + "\n")
        epd = file("one.epd", "4k3/8/8/8/8/8/4P3/4K2R w K - id \"one\";\n")
        for arguments, title, size in [((game,), "Choose Game", 560), ((fen,), "Choose Position", 560),
                                       ((epd,), "Choose Position", 560), (("-s", "400", fen), "Choose Position", 400),
                                       ((game, "-s", "400"), "Choose Game", 400)]:
            program = self.start(*arguments)
            press(program.wait_for("push button", "OK", program.dialog(title)))
            wait_until(lambda: program.square("h1").get_name() == "h1, white rook" and
                       program.square("a1").get_name() == "a1, empty", f"the position of {arguments}")
            self.assertEqual(program.board().width // 8 * 8, size, arguments)
            self.assertEqual(program.close(), 0)
        for argument, message in [("missing.pgn", "There is no file "), ("notes.txt", " is no .pgn")]:
            path = argument if argument == "missing.pgn" else file(argument, "x")
            program = self.start(path)
            program.answer_message(message)
            self.assertEqual(program.square("a1").get_name(), "a1, white rook")
            self.assertEqual(program.close(), 0)
        program = self.start(fen, game)
        press(program.wait_for("push button", "OK", program.dialog("Choose Position")))
        program.answer_message(game)
        self.assertEqual(program.close(), 0)

    def test_questions_are_answered_without_a_window(self):
        for argument, answer in [("--version", "Velmora GUI 1.14\n"), ("-h", "Usage: velmora [-s SIZE] [FILE]\n")]:
            run = subprocess.run([PROGRAM, argument], env={}, capture_output=True, text=True, check=True)
            self.assertTrue(run.stdout.startswith(answer), run.stdout)
            self.assertEqual(run.stderr, "")

    def test_quit_from_the_menu_and_a_second_close(self):
        program = self.start()
        program.debug_on()
        program.choose("File", "Quit")
        self.assertEqual(program.process.wait(20), 0)
        self.assertIn("0 quit", program.read("interface.log"))

    def test_closing_while_the_referee_is_busy(self):
        program = self.start()
        program.debug_on()
        program.choose("Engine", "Load engine...")
        program.choose_file(program.scripted_engine("slow", "until uci\nwait 2000\nanswer uciok\n"))
        program.press_button("OK", program.dialog("Protocol"))
        program.wait_for_log("0 load 0 filename")
        self.assertEqual(program.close(), 0)


main()
