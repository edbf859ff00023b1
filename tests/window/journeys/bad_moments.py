"""What a person does, or an engine, at the wrong moment: a message where something went wrong, and the game stays."""
import os
import time

from driver import Journey, main, wait_until

AFTER_E4 = "rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq - 0 1"


class BadMoments(Journey):
    def begin(self, script):
        program = self.start()
        program.debug_on()
        program.load_engine(program.scripted_engine("partner", "name Partner\n" + script), "uci")
        program.show_fen()
        return program

    def test_programs_that_are_no_engines(self):
        program = self.start(engines_cfg="name Gone\nfilename /no/such/engine\nprotocol uci\n")
        program.debug_on()
        program.show_fen()
        program.play("e2e4")
        program.load_installed()
        program.answer_message("/no/such/engine")
        program.screenshot("failed-load")
        program.choose("Engine", "Load engine...")
        program.choose_file(program.write("letter.txt", "Dear Sir"))
        program.press_button("OK", program.dialog("Protocol"))
        program.answer_message("letter.txt")
        program.expect_fen(AFTER_E4)
        program.play("e7e5")
        program.choose("File", "New game")
        program.wait_for_mode("Human - human")
        program.play("d2d4")
        self.assertEqual(program.close(), 0)

    def test_analysis_in_the_middle_of_a_search(self):
        program = self.begin("think 20000\nseed 1\nplay uci")
        program.choose("Mode", "Human - computer")
        program.play("e2e4")
        wait_until(lambda: "\ngo " in program.read("partner.sent"), "the engine's search")
        program.choose("Mode", "Analysis")
        wait_until(lambda: "go infinite" in program.read("partner.sent"), "the analysis")
        program.play("e7e5", "g1f3")
        wait_until(lambda: program.read("partner.sent").rstrip().endswith("e7e5 g1f3\ngo infinite") or
                   program.read("partner.sent").count("go infinite") == 3, "the analysis of the third move")
        self.assertEqual(program.moves_from_referee(), [], "what a stopped search answers is no move")
        program.expect_fen("rnbqkbnr/pppp1ppp/8/4p3/4P3/5N2/PPPP1PPP/RNBQKB1R b KQkq - 1 2")
        program.close()

    def test_a_new_game_an_engine_and_a_quit_in_the_middle_of_a_search(self):
        program = self.begin("think 20000\nseed 1\nplay uci")
        program.choose("Mode", "Human - computer")
        program.play("e2e4")
        program.choose("File", "New game")
        program.wait_for_log("-----> new")
        program.play("d2d4")
        after = program.fen()
        program.choose("Engine", "Load engine...")
        program.choose_file(program.scripted_engine("second", "name Second\nseed 2\nplay uci"))
        program.press_button("OK", program.dialog("Protocol"))
        program.wait_for_title("Second")
        program.expect_fen(after)
        for _ in range(2):
            program.choose("Mode", "Start thinking")
        program.wait_for_log("-----> move")
        program.choose("Mode", "Start thinking")
        self.assertEqual(program.close(), 0)
        self.assertEqual(program.children_left(), [])

    def test_resigning_at_any_time(self):
        # In the middle of an analysis, and while the person is on move.
        program = self.begin("until uci\nanswer uciok\nuntil go\nanswer bestmove e7e5\nwait 300\nanswer resign now")
        program.play("e2e4")
        program.choose("Mode", "Analysis")
        program.wait_for_log("-----> 1-0 {black resigns}")
        program.expect_fen(AFTER_E4)
        program.choose("File", "New game")
        program.play("e2e4")
        program.wait_for_log("-----> 1-0 {black resigns}", 2)
        program.answer_message("1-0")
        program.choose("File", "New game")
        program.expect_fen("rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1")
        self.assertEqual(program.archive().count("[Event "), 2)
        self.assertEqual(program.close(), 0)

    def test_the_engine_dies_in_the_middle_of_its_thoughts(self):
        program = self.begin("think 1000\nline e2e4 e7e5\nplay uci")
        program.choose("Mode", "Human - computer")
        program.play("e2e4")
        wait_until(lambda: "\ngo " in program.read("partner.sent"), "the engine's search")
        program.kill_engine()
        program.answer_message("crashed")  # nobody has to do anything for it
        program.expect_fen(AFTER_E4)
        program.choose("Mode", "Start thinking")
        program.wait_for_log("-----> move e7e5")
        self.assertEqual(program.close(), 0)

    def test_an_engine_that_is_gone_when_it_is_needed_again(self):
        program = self.begin("line e2e4 e7e5\nplay uci")
        program.choose("Mode", "Human - computer")
        program.play("e2e4")
        program.wait_for_log("-----> move e7e5")
        os.remove(program.path("partner.engine"))
        program.kill_engine()
        time.sleep(0.2)
        program.play("g1f3")
        program.answer_message("crashed")
        program.answer_message("failed")
        program.choose("Mode", "Human - human")
        program.play("b8c6")
        program.expect_fen("r1bqkbnr/pppp1ppp/2n5/4p3/4P3/5N2/PPPP1PPP/RNBQKB1R w KQkq - 2 3")
        self.assertEqual(program.close(), 0)

    def test_a_match_that_is_interrupted(self):
        program = self.start()
        program.install_engines(Alpha="think 20\nplay uci", Beta="think 20\nplay uci")
        os.mkdir(program.path("tournaments"))
        games = "".join(f"game {n} {n} {2 - n % 2} - {1 + n % 2} *\n" for n in (1, 2, 3))
        file = program.write("tournaments/Long.trn", "event Long\nparticipant Alpha\nparticipant Beta\n" + games)
        program.debug_on()
        program.choose("Tournament", "Load")
        program.press_button("LOAD", program.dialog("Load Tournament"))

        def start(times):
            program.choose("Mode", "Tournament")
            program.wait_for_log("-----> whitename", times)
            moves = len(program.moves_from_referee())
            program.wait_for_log("-----> move", moves + 5)

        start(1)
        program.drag("a2a3")  # only looks on
        program.choose("File", "New game")
        program.wait_for_mode("Human - computer")
        program.play("e2e4")
        wait_until(lambda: len(program.moves_from_referee()) > 5 and program.square("e4").get_name() == "e4, white pawn",
                   "the engine's answer")
        start(2)
        program.load_installed()
        program.wait_for_log("-----> tournament_finished")
        program.wait_for_mode("Human - human")
        program.choose("Mode", "Human - computer")
        start(3)
        self.assertEqual(program.close(), 0)
        with open(file, encoding="utf-8") as text:
            self.assertEqual(text.read().count("*"), 3, "no game of the match has got a result")
        self.assertEqual(program.children_left(), [])


main()
