#!/bin/bash
# What a collection costs beside scid, and where its positions are best kept:
#   bench/collection_figures.sh [BUILD_DIR] [GAMES...]
# for each number of games (by default 100,000 and 1,000,000) a generated file whose games begin with named openings;
# files and indexes are kept in the build directory's collections/.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$(cd "${1:-$here/build/release}" && pwd)
shift || true
[ $# -gt 0 ] || set -- 100000 1000000
export PATH=$PATH:/usr/games LC_ALL=C.UTF-8
work=$build/collections
mkdir -p "$work"

for games in "$@"; do
    pgn=$work/$games.pgn
    [ -s "$pgn" ] || "$build/bench/game_corpus" "$pgn" "$games" "$here/openings/eco_lines.txt"
    echo "$games games, $(stat -c %s "$pgn") bytes"
    rm -rf "$work/index" "$work"/scid.*
    xvfb-run -a tkscid "$here/bench/scid_collection.tcl" "$pgn" "$work/scid"
    "$build/bench/collection_figures" "$pgn" "$work/index"
done

if [ -x "$build/bench/position_stores" ] && [ -s "$work/100000.pgn" ]; then
    rm -rf "$work/stores"
    mkdir "$work/stores"
    "$build/bench/position_stores" "$work/100000.pgn" "$work/stores"
    rm -rf "$work/stores"
fi
rm -rf "$work/index" "$work"/scid.*
