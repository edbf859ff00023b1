#!/usr/bin/env bash
# Installs what is missing, builds everything and runs every test. Arguments go to ctest.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/packages.sh

need_packages "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}"
if ! grep -qs '^BUILD_TESTING:BOOL=ON' build/release/CMakeCache.txt || ! [ -f build/release/build.ninja ]; then
    cmake --preset release -DBUILD_TESTING=ON -DVELMORA_WERROR="${VELMORA_WERROR:-OFF}" >/dev/null
fi
cmake --build build/release -- --quiet
exec ctest --test-dir build/release --output-on-failure -j "$(nproc)" "$@"
