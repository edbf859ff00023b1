#!/bin/bash
# Reading a generated PGN file of 125 MB beside grep and pgn-extract, in turn, in CPU seconds (the least of all
# rounds), then the micro-benchmarks of game records and books:
#   bench/game_figures.sh [BUILD_DIR] [ROUNDS]
# The file is kept as $CORPUS, by default game_corpus.pgn in the build directory.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=${1:-$here/build/release}
build=$(cd "$build" && pwd)
rounds=${2:-5}
corpus=${CORPUS:-$build/game_corpus.pgn}
export PATH=$PATH:/usr/games LC_ALL=C.UTF-8

[ -s "$corpus" ] || "$build/bench/game_corpus" "$corpus"
games=$(grep -c '^\[Event ' "$corpus")
echo "$corpus: $(stat -c %s "$corpus") bytes, $games games"

walk=$build/bench/game_walk
declare -A least printed
run() { # name command...
    local name=$1 cpu
    shift
    cpu=$( { TIMEFORMAT='%U %S'; time "$@" >"$scratch" 2>/dev/null; } 2>&1 | awk '{print $1 + $2}')
    printed[$name]=$(tail -1 "$scratch")
    least[$name]=$(printf '%s\n' "${least[$name]:-$cpu}" "$cpu" | sort -g | head -1)
}
scratch=$(mktemp)
trap 'rm -f "$scratch"' EXIT
for _ in $(seq "$rounds"); do
    run grep grep -c '^\[Event ' "$corpus"
    run headers "$walk" headers "$corpus"
    run game "$walk" game "$corpus" "$games"
    run pgn-extract pgn-extract -s -r "$corpus"
    run trees "$walk" trees "$corpus"
    run play "$walk" play "$corpus"
done

row() { # name peer goal
    awk -v name="$1" -v own="${least[$1]}" -v peer="$2" -v other="${least[$2]}" -v goal="$3" -v text="${printed[$1]}" \
        'BEGIN {printf "%-8s %6.3f s, %s %6.3f s: %.2f times (goal %s); %s\n", name, own, peer, other, own / other, goal, text}'
}
row headers grep 1.3
row game grep 3
row trees pgn-extract 0.16
row play pgn-extract 0.3

"$build/bench/game_micro" 2>/dev/null
