#!/usr/bin/env bash
# Starts Velmora in the working directory and closes its window as a user does, on the display it is given:
#
#   with-display.sh start-and-close.sh PROGRAM
#
# Fails, and says why, when there is no window, or when the program then doesn't end well and without a complaint.
set -uo pipefail
program=$1
complaints=$(mktemp "${TMPDIR:-/tmp}/velmora-complaints.XXXXXX") || exit 1
trap 'rm -f "$complaints"' EXIT

fail() {
    echo "$*"
    cat "$complaints"
    exit 1
}

wait_for() {
    local end=$((SECONDS + 20))
    until "$@" >/dev/null 2>&1; do
        [ "$SECONDS" -lt "$end" ] || return 1
        sleep 0.05
    done
}

has_ended() { ! kill -0 "$1"; }

openbox >/dev/null 2>&1 &
wait_for wmctrl -m || fail "no window manager"
"$program" -s 480 2>"$complaints" &
child=$!
wait_for xdotool search --onlyvisible --name '^Velmora' || fail "no window; it said:"
window=$(xdotool search --onlyvisible --name '^Velmora' | head -n 1)
# The desktop knows by this which window belongs to velmora.desktop.
class=$(xprop -id "$window" WM_CLASS)
[ "$class" = 'WM_CLASS(STRING) = "velmora", "Velmora"' ] || fail "the window has another class: $class"

# A file that has grown to the system's limit is an error of that write, not the end of the program.
ignored=0x$(sed -n 's/^SigIgn:\s*//p' "/proc/$child/status")
[ $((ignored >> $(kill -l XFSZ) - 1 & 1)) = 1 ] || fail "SIGXFSZ would end it"

wmctrl -i -c "$window"
wait_for has_ended "$child" || { kill "$child" && fail "its window closed, it doesn't end; it said:"; }
wait "$child" || fail "exit code $?; it said:"
[ "$(cat "$complaints")" = boardsize=480 ] || fail "it complained:"
