#!/bin/sh
# Builds the fuzz targets and runs each for the given number of seconds (default 60). Fails on a finding, whose input is
# then left in build/fuzz/findings/. New inputs gather in build/fuzz/corpus/ and are used by the next run.
#   scripts/fuzz.sh [seconds] [target...]        e.g. scripts/fuzz.sh 120 san set_fen
set -eu
cd "$(dirname "$0")/.."

seconds=${1:-60}
[ $# -gt 0 ] && shift

cmake --preset fuzz >/dev/null
nice cmake --build --preset fuzz --target fuzz_programs

[ $# -gt 0 ] || set -- $(cd fuzz && ls *_fuzz.cpp | sed 's/_fuzz\.cpp$//')
mkdir -p build/fuzz/findings
failed=""
for name in "$@"; do
    echo "== $name, $seconds s"
    mkdir -p "build/fuzz/corpus/$name"
    log="build/fuzz/findings/$name.log"
    if "build/fuzz/fuzz/${name}_fuzz" -max_total_time="$seconds" -max_len=4096 -timeout=10 -close_fd_mask=1 \
        -artifact_prefix="build/fuzz/findings/$name-" "build/fuzz/corpus/$name" "fuzz/corpus/$name" 2>"$log"; then
        grep -E '^(Done|stat::)' "$log" || tail -n 1 "$log"
        rm -f "$log"
    else
        tail -n 40 "$log"
        failed="$failed $name"
    fi
done
if [ -n "$failed" ]; then
    echo "findings in:$failed"
    exit 1
fi
