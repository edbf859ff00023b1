#!/usr/bin/env bash
# Installs what is missing, builds the optimised program and opens its window. Arguments go to the program.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/packages.sh

need_packages "${build_packages[@]}" "${run_packages[@]}"
[ -f build/release/build.ninja ] || cmake --preset release -DBUILD_TESTING=OFF >/dev/null
cmake --build build/release --target velmora -- --quiet

# The program keeps its data in the home directory that the working directory lies in, else beside itself.
case "$PWD" in
    /home/*/*) data_dir="/home/$(cut -d/ -f3 <<<"$PWD")/.velmorachess" ;;
    *) data_dir=. ;;
esac
if [ ! -e "$data_dir/engines.cfg" ] && [ -x /usr/games/stockfish ]; then
    mkdir -p "$data_dir"
    cat >"$data_dir/engines.cfg" <<'CFG'
#                       Installed engines
#

name Stockfish
filename /usr/games/stockfish
protocol uci
CFG
fi

if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
    echo "Velmora is built, but there is no display to open its window on." >&2
    echo "To run it in a virtual one: apt-get install xvfb xauth, then xvfb-run -a scripts/run.sh" >&2
    exit 1
fi
exec build/release/window/velmora "$@"
