#!/usr/bin/env bash
# A window session under valgrind: every menu, dialog and message once, then a monkey that plays, navigates, sets up
# and kills engines. Fails on an invalid access, on the use of a value that was never set, and on a definite leak.
# Usage: scripts/valgrind.sh [actions]      actions of the monkey, 300 if not said
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/packages.sh
need_packages "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}" "${check_packages[@]}"

cmake --preset debug >/dev/null
cmake --build build/debug --target window_interface window_soak -- --quiet
# Plain allocations, so that each is seen; no OpenGL, which the toolkit tries out in a child of its own.
export G_SLICE=always-malloc GDK_GL=disable VELMORA_SOURCE_DIR=$PWD VELMORA_SOAK_ACTIONS=${1:-300}
for program in window_interface window_soak; do
    tests/support/with-display.sh valgrind --quiet --leak-check=full --show-leak-kinds=definite \
        --errors-for-leak-kinds=definite --child-silent-after-fork=yes --num-callers=40 --error-exitcode=1 \
        --suppressions=tests/support/toolkit-memory.supp "build/debug/tests/window/$program"
done
