#!/bin/bash
# What the referee costs: the road of a move through it, then matches of stockfish against itself at
# "fixed_depth 1" through velmora-console, a short and a long one, whose common part drops out of their difference,
# beside the same exchange on bare pipes.
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

write_tournament() { # games
    printf 'event M\nlevel fixed_depth 1\nparticipant A\nparticipant B\n'
    for i in $(seq "$1"); do echo "game $i $i $((i % 2 + 1)) - $((2 - i % 2)) *"; done
}

start_console() { # games output
    write_tournament "$1" >tournaments/m.trn
    [ -p input ] || mkfifo input
    "$build/tools/velmora_console/velmora-console" <input >"$2" &
    console=$!
    exec 3>input
    printf 'load_tournament m\nstart_tournament\n' >&3
}

end_console() {
    echo quit >&3
    exec 3>&-
    wait "$console"
}

# Plays $1 games. Prints: plies, their elapsed ms (from a game's first move to its end), games' gaps, and the ms from
# results to the next game's first position, the longest behind it.
play() {
    start_console "$1" output
    exec 4< <(tail -f --pid="$console" -n +1 output)
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
    exec 4<&-
    end_console
    rm output
    echo "$plies $((elapsed / 1000)) $gaps $((gap_ms / 1000)) $((longest / 1000))"
}

# Plays $1 games with nobody reading their lines as they come. Prints: plies, own CPU ms of the console alone.
cpu() {
    start_console "$1" output
    while grep -q '\*$' tournaments/m.trn; do sleep 0.3; done
    # The 14th and 15th field: ticks of 10 ms in user and kernel mode.
    local ms
    ms=$(awk '{print ($14 + $15) * 10}' "/proc/$console/stat")
    end_console
    echo "$(grep -c '^move' output) $ms"
    rm output
}

"$build/bench/bare_match" "$engine" "$games"
short=$(play 2)
long=$(play "$games")
short_cpu=$(cpu 2)
long_cpu=$(cpu "$games")
awk -v short="$short" -v long="$long" -v short_cpu="$short_cpu" -v long_cpu="$long_cpu" 'BEGIN {
    split(short, s); split(long, l); split(short_cpu, sc); split(long_cpu, lc)
    printf "through the referee: %d plies: %.2f ms a ply, %.3f ms of own CPU a ply\n",
        l[1] - s[1], (l[2] - s[2]) / (l[1] - s[1]), (lc[2] - sc[2]) / (lc[1] - sc[1])
    printf "%d gaps: %.0f ms from a result to the next first position, the longest %d ms\n", l[3], l[4] / l[3], l[5]
}'
