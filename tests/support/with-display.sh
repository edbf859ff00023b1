#!/bin/bash
# Runs a program on a private X server with an environment of its own, and passes its exit code on:
#
#   with-display.sh PROGRAM [ARGUMENT...]
#
# Home, settings and caches lie in a directory that goes with the run, so neither the user's desktop nor
# another run can be seen. A variable that one program needs otherwise goes ahead of it with env(1), for
# instance "with-display.sh env GDK_SCALE=2 PROGRAM". Without an X server to start: exit code 77, "skipped".

if ! command -v xvfb-run >/dev/null || ! command -v xauth >/dev/null; then
    {
        echo "*****************************************************************"
        echo "* SKIPPED: $1"
        echo "* xvfb-run and xauth are missing (Debian packages xvfb, xauth)."
        echo "* NOTHING of the display has been tested."
        echo "*****************************************************************"
    } >&2
    exit 77
fi

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
private=$(mktemp -d "${TMPDIR:-/tmp}/velmora-display.XXXXXX") || exit 1
trap 'rm -rf "$private"' EXIT
mkdir -m 700 "$private"/{home,config,cache,data,runtime}

unset WAYLAND_DISPLAY DISPLAY XAUTHORITY DBUS_SESSION_BUS_ADDRESS GTK_MODULES GTK_PATH GTK2_RC_FILES LANGUAGE LANG
export HOME=$private/home XDG_CONFIG_HOME=$private/config XDG_CACHE_HOME=$private/cache \
    XDG_DATA_HOME=$private/data XDG_RUNTIME_DIR=$private/runtime
export LC_ALL=C.UTF-8 GDK_BACKEND=x11 GTK_THEME=Adwaita GDK_SCALE=1 GDK_DPI_SCALE=1 GDK_RENDERING=image \
    GSETTINGS_BACKEND=memory NO_AT_BRIDGE=1 GTK_IM_MODULE=gtk-im-context-simple

# A complaint of the toolkit is a fault of the program. Set G_DEBUG to nothing to look past one.
export G_DEBUG=${G_DEBUG-fatal-criticals}

# What the toolkit keeps for its lifetime is no leak of ours; what it locks in ways the thread sanitizer
# cannot see is no race.
export LSAN_OPTIONS=suppressions=$here/toolkit-leaks.supp:print_suppressions=0${LSAN_OPTIONS:+:$LSAN_OPTIONS}
export TSAN_OPTIONS=suppressions=$here/toolkit-races.supp${TSAN_OPTIONS:+:$TSAN_OPTIONS}

xvfb-run -a -s '-screen 0 1600x1400x24 -nolisten tcp' "$@"
