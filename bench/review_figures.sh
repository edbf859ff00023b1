#!/usr/bin/env bash
# What a review costs beyond the time that the engine is given: the judging of a game, and a game of 80 plies reviewed
# by the console with 100 ms a position, five times.
# Usage: bench/review_figures.sh BUILD_DIRECTORY
set -euo pipefail
build=$1
engine=${ENGINE:-/usr/games/stockfish}
game=$(mktemp)
# Closed positions without an end in sight: an engine that sees a mate answers ahead of its time.
moves="e4 e5 Nf3 Nc6 Bb5 a6 Ba4 Nf6 O-O Be7 Re1 b5 Bb3 d6 c3 O-O h3 Nb8 d4 Nbd7 Nbd2 Bb7 Bc2 Re8 Nf1 Bf8 Ng3 g6 a4 c5 d5 c4
Bg5 h6 Be3 Nc5 Qd2 h5 Bg5 Be7 Ra3 Nfd7 Bxe7 Qxe7 Rea1 Nb6 axb5 axb5 Rxa8 Rxa8 Rxa8+ Nxa8
Kh2 Nb6 Ne2 Kg7 Ng3 Bc8 Bd1 Bd7 Bc2 Qd8 Kg1 Qc7 Ne2 Qd8 Ng3 Qc7 Bd1 Qd8 Bc2 Qc7 Kf1 Qd8 Ke2 Qc7 Kf1 Qd8 Kg1 Qc7"
one=$game.one two=$game.two
trap 'rm -f "$game" "$one" "$two" "$game.out"' EXIT
printf '[Result "*"]\n\n%s *\n\n' "$moves" >"$one"
cat "$one" "$one" >"$two"
"$build/bench/review_judging"

# Prints nanoseconds and positions.
review() {
    local begin
    begin=$(date +%s%N)
    "$build/tools/velmora_console/velmora-console" --review "$1" --movetime 100 --engine "$engine" >"$game.out" 2>/dev/null
    echo "$(($(date +%s%N) - begin)) $(grep -o '%depth' "$game.out" | wc -l)"
}

# The second game alone: start and end of the engine are in both.
for _ in 1 2 3 4 5; do
    echo "$(review "$one") $(review "$two")" | awk '{
        printf "%d positions at 100 ms: %.3f s, %.3f times the time given\n", $4 - $2, ($3 - $1) / 1e9, ($3 - $1) / 1e8 / ($4 - $2) }'
done
