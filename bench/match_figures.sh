#!/usr/bin/env bash
# What velmora-match costs: the statistics of a million results, the error rates of simulated tests, and plies, games
# and memory with an engine that answers at once, one game and two at once.
# Usage: bench/match_figures.sh BUILD_DIRECTORY
set -euo pipefail
build=$1
match=$build/tools/match/velmora-match
engine=$build/tests/support/scripted_engine
games=${GAMES:-100000}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$build/bench/match_statistics"

# A game of 60 plies by a table, knights going to and fro between changed pawns; -maxmoves ends it. A script named by the variable
# leaves no record of what the engine was sent.
moves="e2e4 e7e5 g1f3 b8c6 f1c4 f8c5 c2c3 g8f6 d2d3 d7d6 b1d2 a7a6 c4b3 c5a7 h2h3 h7h6 d2f1 c8e6 f1g3 d8d7 f3h2 a8d8
d1f3 d6d5 e4d5 e6d5 b3d5 d7d5 f3d5 f6d5 e1e2 e8e7 g3e4 f7f5 e4g3 g7g6 h1d1 h8e8 h2f3 e7f6 c1d2 d8d7 a1c1 e8d8 d2e1
d5e7 b2b3 e7d5 c3c4 d5e7 g3f1 e7c8 f1d2 c8e7 d2f1 e7c8 f1d2 c8e7 d2f1 e7c8"
printf 'name Table\nline %s\nplay\n' "$(echo $moves)" >"$work/table"
export VELMORA_ENGINE_SCRIPT=$work/table

# Prints seconds and peak memory of a match in KiB.
play() {
    /usr/bin/time -f '%e s, %M KiB at most' "$match" -engine cmd="$engine" name=A -engine cmd="$engine" name=B \
        -each proto=uci tc=inf -maxmoves 30 -rounds $(($1 / 2)) -games 2 -repeat -recover -concurrency "$2" "${@:3}" 2>&1 >"$work/out" | tail -n 1
}
echo "200 games of 60 plies, one at once: $(play 200 1)"
echo "200 games, two at once: $(play 200 2)"
echo "200 games, two at once, with a state: $(play 200 2 -config "$work/state")"
echo "2000 games, two at once, with state and record: $(play 2000 2 -config "$work/state2" -pgnout "$work/pgn")"
echo "$games games, two at once, with state: $(play "$games" 2 -config "$work/state3")"
tail -n 3 "$work/out"
