#!/bin/bash
# What the referee costs: the road of a move through it, then matches of stockfish against itself at
# "fixed_depth 1" through velmora-console, a short and a long one; what both have in common drops out of their
# difference.
#   bench/manager_figures.sh [BUILD_DIR] [GAMES]
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$(cd "${1:-$here/build/release}" && pwd)
games=${2:-22}
engine=${ENGINE:-/usr/games/stockfish}

"$build/bench/manager_moves" 2>/dev/null

place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
cd "$place"
mkdir tournaments
for name in A B; do printf 'name %s\nfilename %s\nprotocol uci\n' "$name" "$engine"; done >engines.cfg

# Plays $1 games. Prints: plies, their elapsed ms (from a game's first move to its end), own CPU ms, games' gaps,
# and the ms from results to the next game's first position, the longest behind it.
play() {
    {
        printf 'event M\nlevel fixed_depth 1\nparticipant A\nparticipant B\n'
        for i in $(seq "$1"); do echo "game $i $i $((i % 2 + 1)) - $((2 - i % 2)) *"; done
    } >tournaments/m.trn
    mkfifo input
    "$build/tools/velmora_console/velmora-console" <input >output &
    local console=$!
    exec 3>input
    exec 4< <(tail -f --pid=$console -n +1 output)
    printf 'load_tournament m\nstart_tournament\n' >&3
    local line now first=0 result=0 plies=0 elapsed=0 gaps=0 gap_ms=0 longest=0
    while read -r -u 4 line; do
        now=${EPOCHREALTIME/./}
        case $line in
            setboard*)
                if ((result)); then
                    ((gaps += 1, gap_ms += now - result)) || true
                    ((now - result > longest)) && longest=$((now - result))
                fi
                first=0
                ;;
            move*) if ((first == 0)); then first=$now; else ((plies += 1)); fi ;;
            1-0* | 0-1* | 1/2-1/2*)
                result=$now
                ((elapsed += now - first)) || true
                ;;
            tournament_finished) break ;;
        esac
    done
    # The 14th and 15th field: ticks of 10 ms in user and kernel mode, of this process alone.
    local cpu
    cpu=$(awk '{print ($14 + $15) * 10}' "/proc/$console/stat")
    echo quit >&3
    exec 3>&- 4<&-
    wait $console
    rm input output
    echo "$plies $((elapsed / 1000)) $cpu $gaps $((gap_ms / 1000)) $((longest / 1000))"
}

short=$(play 2)
long=$(play "$games")
awk -v short="$short" -v long="$long" 'BEGIN {
    split(short, s); split(long, l)
    plies = l[1] - s[1]
    printf "%d plies: %.2f ms a ply, %.3f ms of own CPU a ply\n", plies, (l[2] - s[2]) / plies, (l[3] - s[3]) / plies
    printf "%d gaps: %.0f ms from a result to the next first position, the longest %d ms\n", l[4], l[5] / l[4], l[6]
}'
