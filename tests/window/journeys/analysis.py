"""An engine analyses: its output is shown, and it follows the navigation."""
import os
import unittest

from driver import Journey, key, main, text_of, wait_until, walk

STOCKFISH = "/usr/games/stockfish"


class Analysis(Journey):
    @unittest.skipUnless(os.path.exists(STOCKFISH), "stockfish is not installed")
    def test_stockfish_follows_the_navigation(self):
        program = self.start(engines_cfg=f"name Stockfish\nfilename {STOCKFISH}\nprotocol uci\n")
        program.debug_on()
        program.play("e2e4", "e7e5")
        program.load_installed()
        program.wait_for_log("-----> engine1name Stockfish")
        program.choose("View", "Show Engine Output")
        program.choose("Mode", "Analysis")
        program.wait_for_log("-----> white_info", 3, 60)
        output = program.wait_for("frame", "Engines: output")
        wait_until(lambda: any("depth" in text_of(node) for node in walk(output) if node.get_role_name() == "text"),
                   "output in the pane")
        key("Left")
        program.wait_for_log("-----> black_info", 3, 60)
        program.screenshot("analysis")
        program.play("c7c5")
        infos = sum("-----> white_info" in line for line in program.log())
        program.wait_for_log("-----> white_info", infos + 3, 60)
        program.show_fen()
        program.enter_fen("4k3/8/8/8/8/8/4p3/4K2R b - - 0 1")
        program.wait_for_log("0 analyzeposition", 3)
        infos = sum("-----> black_info" in line for line in program.log())
        program.wait_for_log("-----> black_info", infos + 3, 60)
        program.close()

    def test_the_engine_dies_while_it_analyses(self):
        program = self.start()
        program.debug_on()
        path = program.scripted_engine("mortal", "until uci\nanswer uciok\nuntil go\nanswer info depth 1\nuntil stop\ndie\n")
        program.load_engine(path, "uci")
        program.choose("Mode", "Analysis")
        program.wait_for_log("-----> white_info")
        # The one that takes its place lives.
        program.write("mortal.script", "until uci\nanswer uciok\nuntil go\nanswer info depth 2\n")
        program.play("e2e4", "e7e5")
        program.answer_message("crashed")
        program.wait_for_log("white_info depth 2")
        program.play("g1f3")
        self.assertEqual(program.close(), 0)


main()
