#!/bin/bash
# Start-up to a mapped window against a minimal gtkmm window, in turn, and what an idle window costs:
#   bench/startup.sh [BUILD_DIR] [ROUNDS]
# Other programs to compare with follow as PEERS="xboard gnome-chess".
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=${1:-$here/build/release}
build=$(cd "$build" && pwd)
rounds=${2:-15}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
ln -s "$here/velmora.files" "$work/velmora.files"
cd "$work"

export build rounds PEERS=${PEERS:-} NO_AT_BRIDGE=1 GDK_BACKEND=x11 HOME=$work
xvfb-run -a -s '-screen 0 1280x1024x24' bash -c '
    median() { sort -n "$1" | awk "{v[NR] = \$1} END {print v[int((NR + 1) / 2)]}"; }
    mapped=$build/bench/until_mapped
    for round in $(seq "$rounds"); do
        "$mapped" "$build/bench/minimal_window" >>minimal 2>/dev/null
        "$mapped" "$build/window/velmora" >>velmora 2>/dev/null
        for peer in $PEERS; do
            path=$(PATH=$PATH:/usr/games command -v "$peer") && "$mapped" "$path" >>"peer-$peer" 2>/dev/null
        done
    done
    a=$(median minimal); b=$(median velmora)
    echo "start to mapped window, median of $rounds: minimal $a ms, velmora $b ms," \
        "ratio $(awk "BEGIN {printf \"%.2f\", $b / $a}")"
    for peer in $PEERS; do
        [ -s "peer-$peer" ] && echo "  $peer $(median "peer-$peer") ms"
    done

    "$build/window/velmora" 2>/dev/null & pid=$!
    sleep 3
    rss=$(awk "/VmRSS/ {print \$2}" /proc/$pid/status)
    ticks() { awk "{print \$14 + \$15}" /proc/$pid/stat; }
    begin=$(ticks); sleep 20; end=$(ticks)
    kill $pid
    awk "BEGIN {printf \"idle: %.2f %% of one core over 20 s; resident after 3 s: %.1f MB\n\", ($end - $begin) / $(getconf CLK_TCK) / 20 * 100, $rss / 1024}"
'
