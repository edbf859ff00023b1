"""A person loses a game, has it reviewed, finds what was better, saves it and takes it up again."""
import os
import unittest

from driver import Journey, has_state, Atspi, key, main, type_keys, wait_until, walk

STOCKFISH = "/usr/games/stockfish"


@unittest.skipUnless(os.path.exists(STOCKFISH), "stockfish is not installed")
class Review(Journey):
    def label(self, program, beginning):
        return wait_until(lambda: next(n for n in walk(program.window) if n.get_name().startswith(beginning)),
                          f"the text {beginning!r}")

    def test_lost_reviewed_bettered_saved_and_loaded(self):
        program = self.start(files=[("engines.cfg", f"name Stockfish\nfilename {STOCKFISH}\nprotocol uci\n")])
        program.debug_on()
        # The loss.
        path = program.scripted_engine("mate", "name Mate\nline f2f3 e7e5 g2g4 d8h4\nplay uci")
        program.choose("Engine", "Load engine...")
        program.choose_file(path)
        program.press_button("OK", program.wait_for("dialog", "Protocol"))
        wait_until(lambda: program.window.get_name() == "Mate", "the engine's name in the title")
        program.choose("Mode", "Human - computer")
        program.wait_for_log("playother")
        program.play("f2f3")
        program.wait_for_log("-----> move e7e5")
        program.play("g2g4")
        program.answer_message("0-1")

        # The review, by an engine that thinks.
        program.choose("Engine", "Load installed engine...")
        program.press_button("LOAD", program.wait_for("dialog", "Choose Engine"))
        program.wait_for_log("-----> engine1name Stockfish")
        program.choose("Game", "Review game...")
        dialog = program.wait_for("dialog", "Review game")
        depth = program.wait_for("spin button", "Depth", dialog)
        depth.get_value_iface().set_current_value(8)
        wait_until(lambda: has_state(program.find("radio button", "Depth", dialog), Atspi.StateType.CHECKED),
                   "the depth to be picked")
        program.press_button("Review", dialog)
        program.wait_for_log("-----> review_finished 1 done")
        self.label(program, "Stockfish")
        program.screenshot("reviewed")

        # The question for the better move.
        key("shift+F8")
        wait_until(lambda: program.square("h4").get_name() == "h4, empty", "the mistake on the board")
        key("F7")
        self.label(program, "White to move: find a better move than 2. g4.")
        type_keys("g4")
        key("Return")
        self.label(program, "g4 was played. Look for a better move.")
        program.press_button("Show the answer")
        answer = self.label(program, "The engine's choice is 2. ").get_name().split()[-1].rstrip(".")
        key("F7")
        self.label(program, "White to move")
        type_keys(answer)
        key("Return")
        self.label(program, answer + " is the engine's choice.")

        # The file, and back.
        program.choose("File", "Save game")
        program.choose_file(program.path("lost.pgn"), "Save")
        saved = wait_until(lambda: program.read("lost.pgn"), "the file")
        for text in ("Review by Stockfish", "2.g4 $4 {[%eval #-1]", "( 2." + answer, "0-1"):
            self.assertIn(text, saved)
        program.choose("File", "New game")
        program.choose("File", "Load game")
        program.choose_file(program.path("lost.pgn"))
        program.press_button("OK", program.wait_for("dialog", "Choose Game"))
        self.label(program, "Stockfish")
        program.press_button("Previous mistake")
        wait_until(lambda: program.square("g4").get_name() == "g4, white pawn", "the mistake on the board")
        program.close()


main()
