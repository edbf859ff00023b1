#!/usr/bin/env bash
# Plants one small fault at a time in the given sources and names the tests that notice it: a fault without a catcher
# wants a test, a test that never catches anything alone may be one too many.
# Usage: scripts/mutants.sh [-n FAULTS] [-s SEED] [-R TESTS] SOURCE...
#   -n FAULTS  plant a random choice of that many (20)
#   -s SEED    of the choice (1)
#   -R TESTS   run only the test programs that match; without it all that the source is linked into, but journeys,
#              soak and long ones
# Works on a copy below build/mutants/, never on the tree itself. Prints a row for each fault, then the faults without
# a catcher, and by test how many faults it noticed and how many of them alone.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/packages.sh

# A name, and a sed expression that plants the fault on a line; a line that it leaves as it is has no such fault.
faults=(
    'equal      s/ == / != /'
    'unequal    s/ != / == /'
    'less       s/ < / <= /'
    'at-most    s/ <= / < /'
    'more       s/ > / >= /'
    'at-least   s/ >= / > /'
    'and        s/ && / || /'
    'or         s/ || / \&\& /'
    'not        s/\([( ]\)!\([a-z(]\)/\1\2/'
    'true       s/\btrue\b/false/'
    'false      s/\bfalse\b/true/'
    'zero       s/\b0\b/1/'
    'one-more   s/ + 1\b/ + 2/'
    'one-less   s/ - 1\b/ - 2/'
    'increment  s/++/--/'
    'minimum    s/std::min\b/std::max/'
    'maximum    s/std::max\b/std::min/'
    'side       s/Side::white/Side::black/'
    'seat       s/Seat::first/Seat::second/'
    'no-break   s/^\( *\)break;/\1;/'
    'no-call    s/^\( *\)[a-z_][A-Za-z_.>:-]*(.*);$/\1;/'
    'no-return  s/^\( *if (.*) \)return;$/\1{}/'
)
# Not code that runs.
passed_over='^ *(//|#|static_assert|using |namespace |class |struct |template )'

count=20 seed=1 selection=.
while getopts n:s:R: option; do
    case "$option" in
        n) count=$OPTARG ;;
        s) seed=$OPTARG ;;
        R) selection=$OPTARG ;;
        *) exit 2 ;;
    esac
done
shift $((OPTIND - 1))
[ $# -gt 0 ] || { echo "usage: $0 [-n FAULTS] [-s SEED] [-R TESTS] SOURCE..." >&2; exit 2; }
need_packages "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}"

tree=build/mutants/tree
build=$tree/build/debug
mkdir -p "$tree"
find "$tree" -mindepth 1 -maxdepth 1 ! -name build -exec rm -rf {} +
# With their times, so that a second run builds only what has changed.
git ls-files -z --cached --others --exclude-standard | while IFS= read -r -d '' file; do
    [ ! -e "$file" ] || printf '%s\0' "$file"
done | xargs -0 cp --parents --no-dereference -p -t "$tree"
notices=$(mktemp)
trap 'rm -f "$notices"' EXIT
cmake --preset debug -S "$tree" -B "$build" -DVELMORA_WERROR="${VELMORA_WERROR:-OFF}" >/dev/null

# The test programs that one of the sources is linked into.
concerned() {
    local program
    for program in $(ctest --test-dir "$build" -N -R "$selection" -LE 'journey|soak|long' 2>/dev/null |
        grep -oP 'Test +#\d+: \K\S+'); do
        ! grep -qFf <(printf '/%s.o\n' "$@") <(ninja -C "$build" -t inputs "$program" 2>/dev/null |
            sed -E 's|CMakeFiles/[^/]*\.dir/||; s|^|/|') || echo "$program"
    done
}

# Prints the names of those programs' cases that fail, "hang" when one ends without a verdict.
failing() {
    local output
    # A fault may make a test wait or allocate for ever.
    output=$(ulimit -v 16000000; timeout -k 10 300 ctest --test-dir "$build" --output-on-failure --timeout 120 \
        -j "$(nproc)" -R "^($(paste -sd '|' <<<"$1"))\$" 2>&1) && return 0
    {
        grep -oP '^\[  FAILED  \] \K[A-Za-z0-9_/]+\.[A-Za-z0-9_/]+' <<<"$output" ||
            grep -oP '^\s*\d+ - \K\S+' <<<"$output" || echo hang
    } | sort -u
}

# Every fault that can be planted: file, line, name, expression, separated by tabs.
possible() {
    local file row name expression line
    for file in "$@"; do
        for row in "${faults[@]}"; do
            read -r name expression <<<"$row"
            { diff --unchanged-line-format= --old-line-format='%dn
' --new-line-format= "$file" <(sed "$expression" "$file") || true; } | while read -r line; do
                sed -n "${line}p" "$file" | grep -qE "$passed_over" ||
                    printf '%s\t%s\t%s\t%s\n' "$file" "$line" "$name" "$expression"
            done
        done
    done
}

# What is built and run has to be sound before anything is planted.
tests=$(concerned "$@")
[ -n "$tests" ] || { echo "No test program has a part of: $*" >&2; exit 1; }
mapfile -t targets <<<"$tests"
echo "tests: ${targets[*]}"
cmake --build "$build" --target "${targets[@]}" -- --quiet
before=$(failing "$tests")
[ -z "$before" ] || { echo "These tests fail as it is: $before" >&2; exit 1; }

planted=0 survivors=()
while IFS=$'\t' read -r file line name expression <&3; do
    sed -i "${line}${expression}" "$tree/$file"
    if cmake --build "$build" --target "${targets[@]}" -- --quiet >/dev/null 2>&1; then
        planted=$((planted + 1))
        caught=$(failing "$tests")
        echo "$file:$line $name:" ${caught:-nobody}
        [ -n "$caught" ] || survivors+=("$file:$line $name: $(sed -n "${line}s/^ *//p" "$file")")
        [ -z "$caught" ] || awk -v alone="$(wc -l <<<"$caught")" '{print $0, (alone == 1)}' <<<"$caught" >>"$notices"
    else
        echo "$file:$line $name: doesn't compile"
    fi
    cp "$file" "$tree/$file"
done 3< <(possible "$@" | awk -v seed="$seed" 'BEGIN {srand(seed)} {print rand() "\t" $0}' | sort -n |
    cut -f2- | head -n "$count")

echo
echo "$planted faults planted, ${#survivors[@]} without a catcher:"
[ "${#survivors[@]}" -eq 0 ] || printf '  %s\n' "${survivors[@]}"
echo "tests that noticed: how many, how many of them alone"
awk '{all[$1]++; alone[$1] += $2} END {for (test in all) print "  " test, all[test], alone[test]}' "$notices" | sort
