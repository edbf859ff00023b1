#!/usr/bin/env python3
"""The rules core against stockfish's "go perft", in turn on the same machine.

    bench/chess_against_stockfish.py [rounds] [build directory]

Each round runs, position by position, stockfish and each of our four kinds of work; ratios are taken within a round
and their medians are printed, since the machine's speed drifts. All times are processor times of user code. Needs
the benchmark chess_core (a build with VELMORA_BENCH) and stockfish on the path or in /usr/games.
"""

import glob
import json
import math
import os
import shutil
import statistics
import subprocess
import sys

# Name in chess_core, FEN, depth for stockfish.
POSITIONS = [
    ("start", "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1", 6),
    ("tactics", "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1", 5),
    ("endgame", "8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w - - 0 1", 7),
    ("middlegame", "r4rk1/1pp1qppp/p1np1n2/2b1p1B1/2B1P1b1/P1NP1N2/1PP1QPPP/R4RK1 w - - 0 10", 5),
    ("chess960", "1rqbkrbn/1ppppp1p/1n6/p1N3p1/8/2P4P/PP1PPPP1/1RQBKRBN w FBfb - 0 9", 6),
]
# Benchmark, what is required of its ratio.
WORK = [
    ("lists", 0.85),
    ("make_and_unmake", 0.2),
    ("san_read_and_played", 0.055),
    ("san_written_and_played", 0.037),
]


class Stockfish:
    def __init__(self):
        path = shutil.which("stockfish") or "/usr/games/stockfish"
        self.process = subprocess.Popen([path], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def send(self, *lines):
        self.process.stdin.write("".join(line + "\n" for line in lines))
        self.process.stdin.flush()

    def wait_for(self, start):
        for line in self.process.stdout:
            if line.startswith(start):
                return line
        raise RuntimeError("stockfish ended")

    def cpu_seconds(self):
        """Of all threads; the first number of schedstat is the time on a processor in nanoseconds."""
        total = 0
        for path in glob.glob(f"/proc/{self.process.pid}/task/*/schedstat"):
            with open(path) as file:
                total += int(file.read().split()[0])
        return total / 1e9

    def perft_speed(self, name, fen, depth):
        chess960 = "true" if name == "chess960" else "false"
        self.send(f"setoption name UCI_Chess960 value {chess960}", f"position fen {fen}", "isready")
        self.wait_for("readyok")
        before = self.cpu_seconds()
        self.send(f"go perft {depth}")
        nodes = int(self.wait_for("Nodes searched:").split()[2])
        return nodes / (self.cpu_seconds() - before)


def our_speed(program, work, name):
    output = subprocess.run(
        [program, f"--benchmark_filter=^{work}/{name}/", "--benchmark_format=json"],
        capture_output=True, text=True, check=True).stdout
    return json.loads(output)["benchmarks"][0]["items_per_second"]


def geometric_mean(values):
    return math.exp(sum(math.log(value) for value in values) / len(values))


def main():
    rounds = int(sys.argv[1]) if len(sys.argv) > 1 else 5
    root = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    build = sys.argv[2] if len(sys.argv) > 2 else os.path.join(root, "build", "release")
    program = os.path.join(build, "bench", "chess_core")
    stockfish = Stockfish()
    speeds = {}
    ratios = {}
    for _ in range(rounds):
        for name, fen, depth in POSITIONS:
            before = stockfish.perft_speed(name, fen, depth)
            ours = {work: our_speed(program, work, name) for work, _ in WORK}
            theirs = (before + stockfish.perft_speed(name, fen, depth)) / 2
            speeds.setdefault(("stockfish", name), []).append(theirs)
            for work, speed in ours.items():
                speeds.setdefault((work, name), []).append(speed)
                ratios.setdefault((work, name), []).append(speed / theirs)
    stockfish.send("quit")

    names = [name for name, _, _ in POSITIONS]
    print(f"millions a second, medians of {rounds} rounds; in brackets the ratio to stockfish's nodes")
    print("".ljust(24) + "".join(name.rjust(16) for name in names) + "geometric mean".rjust(18))
    rows = ["stockfish"] + [work for work, _ in WORK]
    good = True
    for row in rows:
        speed = [statistics.median(speeds[row, name]) / 1e6 for name in names]
        text = row.ljust(24)
        if row == "stockfish":
            print(text + "".join(f"{value:16.1f}" for value in speed) + f"{geometric_mean(speed):18.1f}")
            continue
        ratio = [statistics.median(ratios[row, name]) for name in names]
        mean = geometric_mean(ratio)
        wanted = dict(WORK)[row]
        good &= mean >= wanted
        print(text + "".join(f"{f'{v:.1f} ({r:.3f})':>16}" for v, r in zip(speed, ratio))
              + f"{f'{geometric_mean(speed):.1f} ({mean:.3f})':>18}  wanted {wanted}")
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())
