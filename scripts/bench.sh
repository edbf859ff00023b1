#!/usr/bin/env bash
# Makes all figures of docs/performance.md again, each beside its peer: installs what is missing, builds the release
# with the benchmarks and runs them one after the other, about half an hour in all. The machine should have nothing
# else to do.
# Usage: scripts/bench.sh [chess] [engine] [referee] [matches] [games] [collection] [review] [lists] [board] [window]; without a name, all of them.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/packages.sh
need_packages "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}" "${bench_packages[@]}"

cmake --preset release -DVELMORA_BENCH=ON -DBUILD_TESTING=ON >/dev/null
cmake --build build/release -- --quiet
build=build/release
corpus=$build/game_corpus.pgn

on_display() { tests/support/with-display.sh "$@" 2>/dev/null; }

for part in "${@:-chess engine referee matches games collection review lists board window}"; do
    for name in $part; do
        echo "== $name"
        case "$name" in
            chess) bench/chess_against_stockfish.py 5 "$build" && "$build/bench/chess_core" --benchmark_filter='read/|copied|maps' ;;
            engine) "$build/bench/engine_pipe" 2>/dev/null ;;
            referee) bench/manager_figures.sh "$build" ;;
            matches) bench/match_figures.sh "$build" ;;
            games) CORPUS=$corpus bench/game_figures.sh "$build" ;;
            collection) bench/collection_figures.sh "$build" ;;
            review) bench/review_figures.sh "$build" ;;
            lists)
                [ -s "$corpus" ] || "$build/bench/game_corpus" "$corpus"
                on_display "$build/bench/dialogs_game_list" "$corpus"
                ;;
            board) on_display "$build/bench/views_redraw" ;;
            window) bench/window_figures.sh "$build" ;;
            *) echo "unknown figures: $name" >&2 && exit 2 ;;
        esac
    done
done
