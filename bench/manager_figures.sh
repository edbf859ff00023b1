#!/bin/bash
# What the referee costs: the road of a move through it, then matches of stockfish against itself at
# "fixed_depth 1" through velmora-console, a short and a long one, whose common part drops out of their difference,
# beside the same exchange on bare pipes. Twice: waking a sleeping core costs more than what the referee does.
#   bench/manager_figures.sh [BUILD_DIR] [GAMES]
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$(cd "${1:-$here/build/release}" && pwd)
games=${2:-22}
engine=${ENGINE:-/usr/games/stockfish}

"$build/bench/manager_moves" 2>/dev/null

place=$(mktemp -d)
lines=$(mktemp -p /dev/shm)  # in memory: what a disk costs isn't the referee's
loop=
trap 'rm -rf "$place" "$lines"; [ -z "$loop" ] || kill "$loop" 2>/dev/null || true' EXIT
cd "$place"
mkdir tournaments
for name in A B; do printf 'name %s\nfilename %s\nprotocol uci\n' "$name" "$engine"; done >engines.cfg

write_tournament() { # games
    printf 'event M\nlevel fixed_depth 1\nparticipant A\nparticipant B\n'
    for i in $(seq "$1"); do echo "game $i $i $((i % 2 + 1)) - $((2 - i % 2)) *"; done
}

# Plays $1 games and prints what match_watch tells of them.
play() {
    write_tournament "$1" >tournaments/m.trn
    "$build/bench/match_watch" "$build/tools/velmora_console/velmora-console"
}

# Plays $1 games into a file, which wakes nobody. Prints: plies, own CPU ms of the console alone.
cpu() {
    write_tournament "$1" >tournaments/m.trn
    [ -p input ] || mkfifo input
    "$build/tools/velmora_console/velmora-console" <input >"$lines" &
    local console=$! ms
    exec 3>input
    printf 'load_tournament m\nstart_tournament\n' >&3
    while grep -q '\*$' tournaments/m.trn; do sleep 0.3; done
    # The 14th and 15th field: ticks of 10 ms in user and kernel mode.
    ms=$(awk '{print ($14 + $15) * 10}' "/proc/$console/stat")
    echo quit >&3
    exec 3>&-
    wait "$console"
    echo "$(grep -c '^move' "$lines") $ms"
}

compare() {
    local short long short_cpu long_cpu
    "$build/bench/bare_match" "$engine" "$games"
    short=$(play 2)
    long=$(play "$games")
    short_cpu=$(cpu 2)
    long_cpu=$(cpu "$games")
    awk -v short="$short" -v long="$long" -v short_cpu="$short_cpu" -v long_cpu="$long_cpu" 'BEGIN {
        split(short, s); split(long, l); split(short_cpu, sc); split(long_cpu, lc)
        printf "through the referee: %d plies: %.2f ms a ply, %.3f ms of own CPU a ply\n",
            l[1] - s[1], (l[2] - s[2]) / (l[1] - s[1]), (lc[2] - sc[2]) / (lc[1] - sc[1])
        printf "%d gaps: %.0f ms from a result to the next first position, the longest %d ms\n",
            l[3], l[4] / l[3], l[5]
    }'
}

echo "idle machine"
compare
echo "one core kept awake by a loop of the lowest priority"
nice -n 19 sh -c 'while :; do :; done' &
loop=$!
compare
kill "$loop"
