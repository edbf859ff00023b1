#!/bin/bash
# Runs a journey, a Python program that uses Velmora as a person does, on a private X server with its own bus, window
# manager and home: run.sh JOURNEY.py [ARGUMENT...]. Exit code 77 means skipped, for want of a tool.
for tool in xvfb-run xauth xdotool wmctrl openbox import dbus-run-session; do
    command -v "$tool" >/dev/null || { echo "SKIPPED: $tool is missing" >&2; exit 77; }
done
/usr/bin/python3 -c 'import gi; gi.require_version("Atspi", "2.0")' 2>/dev/null ||
    { echo "SKIPPED: python3-gi or gir1.2-atspi-2.0 is missing" >&2; exit 77; }

private=$(mktemp -d "${TMPDIR:-/tmp}/velmora-journey.XXXXXX") || exit 1
trap 'rm -rf "$private"' EXIT
mkdir -m 700 "$private/runtime"
unset WAYLAND_DISPLAY DISPLAY DBUS_SESSION_BUS_ADDRESS
export HOME=$private XDG_CONFIG_HOME=$private/config XDG_CACHE_HOME=$private/cache XDG_DATA_HOME=$private/data \
    XDG_RUNTIME_DIR=$private/runtime LC_ALL=C.UTF-8 GDK_BACKEND=x11 GTK_THEME=${GTK_THEME:-Adwaita} GDK_SCALE=1 \
    GSETTINGS_BACKEND=memory NO_AT_BRIDGE=0 PYTHONDONTWRITEBYTECODE=1
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
export PYTHONPATH=$here
# As for the widget tests: what the toolkit keeps or locks in its own way is none of the program's faults.
support=$here/../../support
export LSAN_OPTIONS=suppressions=$support/toolkit-leaks.supp:print_suppressions=0${LSAN_OPTIONS:+:$LSAN_OPTIONS} \
    TSAN_OPTIONS=suppressions=$support/toolkit-races.supp${TSAN_OPTIONS:+:$TSAN_OPTIONS}

dbus-run-session -- xvfb-run -a -s "-screen 0 1300x1420x24 -nolisten tcp" bash -c '
    openbox >/dev/null 2>&1 & manager=$!
    for _ in $(seq 500); do
        wmctrl -m >/dev/null 2>&1 && break
        kill -0 $manager 2>/dev/null || { openbox >/dev/null 2>&1 & manager=$!; }
        sleep 0.04
    done
    wmctrl -m >/dev/null || { echo "no window manager runs" >&2; exit 1; }
    /usr/bin/python3 -W ignore::DeprecationWarning "$@"; code=$?
    kill $manager; exit $code' _ "$@"
