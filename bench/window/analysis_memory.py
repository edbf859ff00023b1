"""What the window keeps in memory after analysing at every move of a long game.

    tests/window/journeys/run.sh bench/window/analysis_memory.py

with VELMORA_SOURCE_DIR and VELMORA_BINARY_DIR set, as bench/window_figures.sh does. A game of 1,000 plies is
opened, and an engine that says 100 lines at each position analyses it from the last move back to the first, with
the output window open.
"""
import unittest

from driver import Journey, key, main, xdotool

PLIES = 1000
LINES = 100
SHUTTLE = ["Nf3", "Nf6", "Ng1", "Ng8"]
INFO = ("info depth %d seldepth 30 multipv 1 score cp 31 nodes 12345678 nps 1000000 hashfull 100 tbhits 0 "
        "time 1234 pv e2e4 e7e5 g1f3 b8c6 f1b5 a7a6 b5a4 g8f6 e1g1 f8e7 f1e1 b7b5 a4b3 d7d6")


class AnalysisMemory(Journey):
    def resident_mb(self, program):
        with open(f"/proc/{program.process.pid}/status", encoding="ascii") as status:
            return next(int(line.split()[1]) for line in status if line.startswith("VmRSS")) / 1024

    def test_a_thousand_moves(self):
        moves = " ".join((f"{ply // 2 + 1}. " if ply % 2 == 0 else "") + SHUTTLE[ply % 4] for ply in range(PLIES))
        program = self.start()
        program.write("long.pgn", f'[Event "Long"]\n[Result "*"]\n\n{moves} *\n')
        program.debug_on()
        search = f"until go\nflood {LINES} {INFO}\nuntil stop\nanswer bestmove g1f3\n"
        path = program.scripted_engine("talker", "until uci\nanswer uciok\n" + search * (PLIES + 10))
        program.write("engines.cfg", f"name talker\nfilename {path}\nprotocol uci\n")
        program.choose("Engine", "Load installed engine...")
        program.press_button("LOAD", program.wait_for("dialog", "Choose Engine"))
        program.wait_for_log("-----> engine1name")
        program.choose("File", "Load game")
        program.choose_file(program.path("long.pgn"))
        program.wait_for("dialog", "Choose Game")
        key("Return")
        program.wait_for_log("setboard")
        program.choose("View", "Show Engine Output")
        program.choose("Mode", "Analysis")
        program.wait_for_log("_info")
        before = self.resident_mb(program)
        xdotool("mousemove", *program.center("e4"), "click", 1)
        key("End")
        for step in range(0, PLIES, 100):
            xdotool("key", "--delay", 40, *["Left"] * 100)
        program.wait_for_log(f"_info depth {LINES} ", PLIES)
        said = sum("_info" in line for line in program.log())
        print(f"analysis: {said} lines over {PLIES} moves; "
              f"resident before {before:.1f} MB, after {self.resident_mb(program):.1f} MB")
        program.close()


main()
