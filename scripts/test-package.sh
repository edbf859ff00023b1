#!/usr/bin/env bash
# Builds the Debian package and tries it as its users meet it: what is in it, whether its programs are hardened, whether
# the desktop accepts its files, whether the program starts from it and closes. As root it is installed for that, and
# removed without a trace; otherwise it is only unpacked, and the end says what has not been tried.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/packages.sh

need_packages "${run_packages[@]}" "${test_packages[@]}"

# Outside of /home, where the program would take the data of whoever lives there.
private=$(mktemp -d /var/tmp/velmora-package.XXXXXX)
installed=
here=$PWD
trap clean_up EXIT

clean_up() {
    [ -z "$installed" ] || dpkg --purge velmora >/dev/null || true
    rm -rf "$private"
}

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

# A value that the top CMakeLists.txt gives the project.
project() { sed -n "s/^CMAKE_PROJECT_$1:[A-Z]*=//p" build/release/CMakeCache.txt; }

# The files that the package must hold; nothing else may be in it.
expected_files() {
    local size
    (cd velmora.files/svg && printf 'usr/games/velmora.files/svg/%s\n' *.svg)
    for size in 16 22 24 32 48 64 128 256; do
        echo "usr/share/icons/hicolor/${size}x$size/apps/velmora.png"
    done
    cat <<'FILES'
usr/games/velmora
usr/games/velmora-collection
usr/games/velmora-console
usr/games/velmora-match
usr/share/applications/velmora.desktop
usr/share/bash-completion/completions/velmora-match
usr/share/doc/velmora/CHANGELOG.md.gz
usr/share/doc/velmora/changelog.gz
usr/share/doc/velmora/copyright
usr/share/icons/hicolor/scalable/apps/velmora.svg
usr/share/man/man1/velmora-collection.1.gz
usr/share/man/man1/velmora-match.1.gz
usr/share/man/man6/velmora-console.6.gz
usr/share/man/man6/velmora.6.gz
usr/share/metainfo/org.velmora.velmora.metainfo.xml
usr/share/mime/packages/velmora.xml
FILES
}

check_contents() {
    local package=$1 tree=$2 field dependency icon size
    diff <(expected_files | sort) <(cd "$tree" && find . ! -type d | sed 's|^\./||' | sort) ||
        fail "the package holds other files than it should (< expected, > found)"
    field=$(dpkg-deb -f "$package" Depends)
    for dependency in librsvg2-common fonts-dejavu-core adwaita-icon-theme libgtkmm-3.0 libstdc++6; do
        grep -qF "$dependency" <<<"$field" || fail "the package doesn't depend on $dependency: $field"
    done
    [ "$(dpkg-deb -f "$package" Recommends)" = stockfish ] || fail "the package doesn't recommend an engine"
    [ "$(dpkg-deb -f "$package" Version)" = "$(project VERSION)" ] ||
        fail "the package is not of version $(project VERSION)"
    for icon in "$tree"/usr/share/icons/hicolor/*x*/apps/velmora.png; do
        size=$(basename "$(dirname "$(dirname "$icon")")")
        [ "$(identify -format '%wx%h' "$icon")" = "$size" ] || fail "$icon is not $size"
    done
}

# check_hardening <program>: what the build asks of compiler and linker, as it stands in the program.
check_hardening() {
    local program=$1 header segments dynamic symbols notes
    header=$(readelf -hW "$program")
    segments=$(readelf -lW "$program")
    dynamic=$(readelf -dW "$program")
    symbols=$(readelf -W --dyn-syms "$program")
    notes=$(readelf -nW "$program")
    grep -q 'Type: *DYN' <<<"$header" && grep -q 'FLAGS_1.*PIE' <<<"$dynamic" ||
        fail "$program is no position independent executable"
    grep -q 'GNU_RELRO' <<<"$segments" || fail "$program has no read-only relocations"
    grep -Eq '\(FLAGS\).*BIND_NOW|\(FLAGS_1\).*NOW' <<<"$dynamic" || fail "$program isn't bound at its start"
    ! grep -q 'GNU_STACK.*E ' <<<"$segments" || fail "$program has an executable stack"
    grep -q ' __stack_chk_fail@' <<<"$symbols" || fail "$program has no stack protector"
    grep -Eq ' __[a-z]+_chk@' <<<"$symbols" || fail "$program calls no fortified function"
    [ "$(uname -m)" != x86_64 ] || grep -q 'x86 feature:.*IBT.*SHSTK' <<<"$notes" ||
        fail "$program has no control flow protection"
}

# try_programs <working directory> <directory of the programs>
try_programs() {
    local said
    said=$(cd "$1" && "$here/tests/support/with-display.sh" "$here/tests/desktop/start-and-close.sh" "$2/velmora" 2>&1) ||
        fail "$2/velmora, started in $1: $said"
    said=$(cd "$1" && "$2/velmora-console" <<<quit 2>&1) || fail "$2/velmora-console, started in $1: $said"
    [ "$(tail -n 1 <<<"$said")" = quit ] || fail "$2/velmora-console doesn't answer: $said"
}

# All that a package of this name, its file types and its icons can leave in the system.
traces() {
    find /usr /etc /opt /var -xdev \( -ipath '*velmora*' -o -name 'x-chess-epd*' \) ! -path "$private*" | sort
    grep -ls 'velmora\|x-chess-epd' /usr/share/mime/{globs2,mime.cache} /usr/share/applications/mimeinfo.cache \
        /usr/share/icons/hicolor/icon-theme.cache || true
}

package=$(scripts/package.sh)
mkdir "$private/tree" "$private/work"
dpkg-deb -x "$package" "$private/tree"
check_contents "$package" "$private/tree"
for program in velmora velmora-collection velmora-console velmora-match; do check_hardening "$private/tree/usr/games/$program"; done
tests/desktop/check-desktop-files.sh "$private/tree/usr/share" "$(project VERSION)" "$(project HOMEPAGE_URL)" ||
    fail "the desktop's files in the package"

if [ "$(id -u)" -ne 0 ]; then
    try_programs "$private/tree/usr/games" "$private/tree/usr/games"
    echo "$package: contents are right, and the unpacked programs start and end."
    echo "*** NOT tried, for want of root: installing and removing the package. ***"
    exit 0
fi

[ "$(dpkg-query -W -f='${db:Status-Status}' velmora 2>/dev/null)" != installed ] ||
    fail "a package velmora is installed already; this test would remove it"
traces >"$private/before"
installed=yes
env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "$package" >"$private/apt.log" 2>&1 ||
    fail "the package can't be installed: $(cat "$private/apt.log")"
try_programs "$private/work" /usr/games
for type in vnd.chess-pgn x-chess-fen x-chess-epd; do
    # A desktop offers only what its own search path finds, and root's lacks the games.
    programs=$(PATH=$PATH:/usr/games gio mime "application/$type")
    grep -q 'velmora\.desktop$' <<<"$programs" || fail "the desktop doesn't open $type with Velmora: $programs"
done
dpkg --purge velmora >"$private/apt.log" 2>&1 || fail "the package can't be removed: $(cat "$private/apt.log")"
installed=
traces | diff "$private/before" - || fail "the removed package left these behind"
echo "$package: contents are right, it installs, its programs start and end, and it goes without a trace."
