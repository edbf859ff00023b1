#!/usr/bin/env bash
# Installs what is missing, builds everything and runs every test. Arguments go to ctest.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/packages.sh

need_packages "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}"
fetch_games build/games
# The debug build: the library checks its own use there, and nothing waits for link-time optimisation.
cmake --preset debug -DVELMORA_WERROR="${VELMORA_WERROR:-OFF}" >/dev/null
cmake --build build/debug -- --quiet
exec ctest --test-dir build/debug --output-on-failure -j "$(nproc)" "$@"
