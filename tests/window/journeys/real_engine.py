"""A person with an engine that really thinks: a game with pondering, then an analysis that follows the navigation."""
import os
import unittest

from driver import Journey, main, press, text_of, wait_until, walk

STOCKFISH = "/usr/games/stockfish"


@unittest.skipUnless(os.path.exists(STOCKFISH), "stockfish is not installed")
class RealEngine(Journey):
    def test_a_game_and_its_analysis(self):
        program = self.start(files=[("engines.cfg", f"name Stockfish\nfilename {STOCKFISH}\nprotocol uci\n")])
        program.debug_on()
        program.choose("Engine", "Load installed engine...")
        program.press_button("LOAD", program.wait_for("dialog", "Choose Engine"))
        program.wait_for_log("-----> engine1name Stockfish")
        program.choose("Mode", "Human - computer")
        program.choose("Options", "Ponder")
        text = program.show_text("Show PGN", "PGN")
        # Moves that fit any defence, then the engine moves for the person.
        for count, move in enumerate(("g1f3", "b1c3"), 1):
            program.drag(move)
            program.wait_for_log("-----> move", count)
        for count in range(3, 9):
            program.choose("Mode", "Start thinking")
            program.wait_for_log("-----> move", count)
        wait_until(lambda: text_of(text).count("[%depth ") == 8, "the engine's words on its moves")

        program.choose("View", "Show Engine Output")
        program.choose("Mode", "Analysis")
        output = program.wait_for("frame", "Engines: output")
        wait_until(lambda: any("depth" in text_of(node) for node in walk(output) if node.get_role_name() == "text"),
                   "output in the pane")

        def infos(side):
            return sum(f"-----> {side}_info" in line for line in program.log())

        # Ten plies have been played: White is to move, one move back Black is.
        for step, side in (("One move back", "black"), ("One move back", "white"), ("One move forward", "black")):
            told = infos(side)
            press(program.wait_for("push button", step))
            program.wait_for_log(f"-----> {side}_info", told + 3)
        program.screenshot("analysis")
        program.close()


main()
