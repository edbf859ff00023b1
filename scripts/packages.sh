# Debian packages by purpose, and the one function that installs what is missing. Sourced by the other scripts.

build_packages=(g++ cmake ninja-build ccache pkg-config libgtkmm-3.0-dev libsqlite3-dev)
# The SVG loader, a font and icons make the window complete; stockfish is somebody to play against.
run_packages=(librsvg2-common fonts-dejavu-core adwaita-icon-theme stockfish)
test_packages=(
    libgtest-dev libgmock-dev
    xvfb xauth xdotool wmctrl openbox imagemagick x11-utils dbus dbus-x11 at-spi2-core python3 python3-gi gir1.2-atspi-2.0
    toga2 fairymax phalanx gnuchess gnuchess-book pgn-extract procps
    desktop-file-utils appstream man-db groff shared-mime-info libglib2.0-bin
)
check_packages=(git clang clang-format clang-tidy libclang-rt-14-dev valgrind)
# dpkg-dev and file find the libraries that the program needs, librsvg2-bin draws the icons.
package_packages=(dpkg-dev file librsvg2-bin)
# The chess programs are those that the figures stand beside.
bench_packages=(libbenchmark-dev libx11-dev liblmdb-dev stockfish pgn-extract scid xboard gnome-chess)

# Its lessons and puzzles are 1300 games with starts, variations and comments. Only these files are wanted: installed, it
# would bring an endgame library, a database and much of a desktop along.
games_package=pychess

# need_packages <package>...: installs what is missing, as root or by sudo; with neither it prints the one line
# that is missing and ends the script.
need_packages() {
    local missing=() package
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0

    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "These packages are missing; install them as root and start again:" >&2
            echo "  apt-get install --no-install-recommends ${missing[*]}" >&2
            exit 1
        fi
        as_root=(sudo)
    fi
    echo "Installing: ${missing[*]}" >&2
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq >&2
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
}

# fetch_games <directory>: unpacks the games of games_package there, once; the tests that read them are skipped when
# it can't be had.
fetch_games() {
    [ ! -d "$1" ] || return 0
    local unpacked
    unpacked=$(mktemp -d)
    if (cd "$unpacked" && apt-get -qq -o APT::Sandbox::User=root download "$games_package" &&
        dpkg-deb -x "$games_package"_*.deb .) >&2; then
        mkdir -p "$1"
        find "$unpacked/usr/share" -name '*.pgn' -exec cp {} "$1" \;
    else
        echo "The games of $games_package can't be had; tests that read them are skipped." >&2
    fi
    rm -rf "$unpacked"
}
