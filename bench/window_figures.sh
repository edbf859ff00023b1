#!/bin/bash
# The program as a whole: start-up to a mapped window and closing, in turn with a minimal gtkmm window and with other
# chess programs where they are installed; what an idle window costs; the road of a move; memory after a long analysis.
#   bench/window_figures.sh [BUILD_DIR] [ROUNDS]
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$(cd "${1:-$here/build/release}" && pwd)
rounds=${2:-15}
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
ln -s "$here/velmora.files" "$place/velmora.files"
cd "$place"

export build rounds NO_AT_BRIDGE=1 GDK_BACKEND=x11 HOME=$place PATH=$PATH:/usr/games
xvfb-run -a -s '-screen 0 1280x1024x24' bash -c '
    declare -A program=([minimal]=$build/bench/minimal_window [velmora]=$build/window/velmora)
    names="minimal velmora"
    for peer in xboard gnome-chess; do
        program[$peer]=$(command -v "$peer") && names+=" $peer" || echo "$peer is not installed"
    done
    for round in $(seq "$rounds"); do
        for name in $names; do
            "$build/bench/start_and_close" "${program[$name]}" 2>/dev/null >>"$name"
        done
    done
    median() { sort -n | awk "{v[NR] = \$1} END {print v[int((NR + 1) / 2)]}"; }
    least=$(cut -d" " -f1 minimal | median)
    echo "medians of $rounds rounds in turn"
    for name in $names; do
        shown=$(cut -d" " -f1 "$name" | median)
        awk "BEGIN {printf \"%-12s start to mapped window %6.1f ms (%.2f times minimal), close to end %6.1f ms\n\",
            \"$name\", $shown, $shown / $least, \"$(cut -d" " -f2 "$name" | median)\"}"
    done

    "$build/window/velmora" 2>/dev/null & pid=$!
    sleep 3
    rss=$(awk "/VmRSS/ {print \$2}" /proc/$pid/status)
    ticks() { awk "{print \$14 + \$15}" /proc/$pid/stat; }
    begin=$(ticks); sleep 20; end=$(ticks)
    kill $pid
    awk "BEGIN {printf \"idle: %.2f %% of one core over 20 s; resident 3 s after the start: %.1f MB\n\",
        ($end - $begin) / $(getconf CLK_TCK) / 20 * 100, $rss / 1024}"
'

export VELMORA_SOURCE_DIR=$here VELMORA_BINARY_DIR=$build
"$here/tests/support/with-display.sh" "$build/bench/window_moves" 2>/dev/null
"$here/tests/window/journeys/run.sh" "$here/bench/window/analysis_memory.py" 2>&1 | grep -E '^analysis|^[A-Z][A-Za-z]*Error|^FAILED'
