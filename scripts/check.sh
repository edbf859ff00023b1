#!/usr/bin/env bash
# What a change must pass besides the tests: layout, static analysis, the tests again under the sanitizers, a window
# session under valgrind, the fuzz targets, and the Debian package.
# Usage: scripts/check.sh [format] [tidy] [asan] [tsan] [valgrind] [fuzz] [package]; without a name, all of these.
# Asked for by name only: journeys-asan and journeys-tsan, a person's ways through the whole window under the sanitizers.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/packages.sh
need_packages "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}" "${check_packages[@]}"
fetch_games build/games

sources() { git ls-files '*.cpp' '*.h'; }

check_format() { sources | xargs clang-format --dry-run -Werror; }

# Only what changed since VELMORA_BASE (the commit before this one, if it is not set) is analysed.
check_tidy() {
    local base="${VELMORA_BASE:-HEAD~1}" changed
    git rev-parse -q --verify "$base^{commit}" >/dev/null || base=$(git hash-object -t tree /dev/null)
    changed=$(git diff --name-only --diff-filter=d "$base" -- '*.cpp' ':!tests' ':!fuzz' ':!bench')
    [ -n "$changed" ] || return 0
    [ -f build/debug/build.ninja ] || cmake --preset debug >/dev/null
    xargs -P "$(nproc)" -n 4 clang-tidy -p build/debug --quiet <<<"$changed"
}

configure_sanitizer() { cmake --preset "$1" -DVELMORA_WERROR="${VELMORA_WERROR:-OFF}" >/dev/null; }

check_sanitizer() {
    configure_sanitizer "$1"
    cmake --build "build/$1" -- --quiet
    # The journeys take minutes each and have a check of their own.
    ctest --preset "$1" -j "$(nproc)" -LE journey
}

# The journeys wait for what they see with deadlines; a tenfold slowdown wants longer ones, and the machine for itself.
check_journeys() {
    configure_sanitizer "$1"
    cmake --build "build/$1" --target velmora scripted_engine drag_source -- --quiet
    VELMORA_PATIENCE=150 VELMORA_SHOTS=$PWD/build/$1/screenshots ctest --preset "$1" -L journey
}

check_valgrind() { scripts/valgrind.sh; }

check_fuzz() { scripts/fuzz.sh "${VELMORA_FUZZ_SECONDS:-5}"; }

check_package() { scripts/test-package.sh; }

for check in "${@:-format tidy asan tsan valgrind fuzz package}"; do
    for name in $check; do
        echo "== $name"
        case "$name" in
            format) check_format ;;
            tidy) check_tidy ;;
            asan | tsan) check_sanitizer "$name" ;;
            journeys-asan | journeys-tsan) check_journeys "${name#journeys-}" ;;
            valgrind) check_valgrind ;;
            fuzz) check_fuzz ;;
            package) check_package ;;
            *) echo "unknown check: $name" >&2 && exit 2 ;;
        esac
    done
done
