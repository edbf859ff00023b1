#!/usr/bin/env bash
# Holds the files that the desktop reads against the desktop's own validators, and against each other:
#
#   check-desktop-files.sh DIRECTORY VERSION HOMEPAGE
#
# DIRECTORY is data/ or the share/ directory of an installation. A validator must say nothing at all. Exit code 1
# when anything is wrong, else 77 ("skipped") when a validator is missing: then not everything has been looked at.
set -uo pipefail
directory=$1 version=$2 homepage=$3
private=$(mktemp -d "${TMPDIR:-/tmp}/velmora-desktop.XXXXXX") || exit 1
trap 'rm -rf "$private"' EXIT
export LC_ALL=C.UTF-8 XDG_DATA_HOME=$private/home XDG_DATA_DIRS=$private/share
faults=0 skipped=0

fault() {
    echo "FAULT: $*"
    faults=$((faults + 1))
}

have() {
    command -v "$1" >/dev/null && return
    echo "*** SKIPPED: $1 is missing (Debian package $2): $3 NOT checked. ***"
    skipped=1
    return 1
}

# silent <what> <command>...: the command succeeds without a word.
silent() {
    local what=$1 said
    shift
    said=$("$@" 2>&1) && [ -z "$said" ] || fault "$what: ${said:-exit code is not 0}"
}

# only <variable> <name>: the one file of that name below the directory.
only() {
    local found
    found=$(find "$directory" -name "$2")
    [ -f "$found" ] || fault "one $2 expected below $directory, not: ${found:-none}"
    printf -v "$1" %s "$found"
}

# appstreamcli has a last word even when all is well.
validate_metainfo() {
    appstreamcli validate --no-net --no-color --pedantic "$1" | grep -v '^✔ Validation was successful\.$'
    [ "${PIPESTATUS[0]}" -eq 0 ]
}

# What man does to show a page, with all warnings of the formatter.
format_page() { MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$1" >/dev/null; }

only desktop velmora.desktop
only metainfo org.velmora.velmora.metainfo.xml
only mime velmora.xml
only drawing velmora.svg
only changelog 'changelog*'
[ "$faults" -eq 0 ] || exit 1

have desktop-file-validate desktop-file-utils "the desktop file" && silent "$desktop" desktop-file-validate "$desktop"
have appstreamcli appstream "the AppStream file" && silent "$metainfo" validate_metainfo "$metainfo"
if have man man-db "the manual" && have groff groff "the manual"; then
    pages=$(find "$directory" -name '*.6' -o -name '*.6.gz')
    [ -n "$pages" ] || fault "no manual pages below $directory"
    for page in $pages; do silent "$page" format_page "$page"; done
fi

# A file manager that knows nothing but these files must find the type of a file, and the program that opens it.
opens() {
    local name=$1 expected=$2 type
    echo "anything" >"$private/$name"
    type=$(gio info -a standard::content-type "$private/$name" | sed -n 's/ *standard::content-type: //p')
    [ "$type" = "$expected" ] || fault "$name is taken for ${type:-nothing}, not for $expected"
    grep -qx "$expected=velmora.desktop;" "$private/share/applications/mimeinfo.cache" ||
        fault "$name, of type $expected, is not opened by velmora.desktop"
    grep -q "<mediatype>$expected</mediatype>" "$metainfo" || fault "$metainfo doesn't provide $expected"
}
if have update-mime-database shared-mime-info "the file types" && have gio libglib2.0-bin "the file types" &&
    have update-desktop-database desktop-file-utils "the file types"; then
    mkdir -p "$private/share/mime/packages" "$private/share/applications"
    cp "$mime" "$private/share/mime/packages"
    cp "$desktop" "$private/share/applications"
    silent "$mime" update-mime-database "$private/share/mime"
    silent "$desktop" update-desktop-database "$private/share/applications"
    opens game.pgn application/vnd.chess-pgn
    opens position.fen application/x-chess-fen
    opens positions.epd application/x-chess-epd
fi

grep -q "<launchable type=\"desktop-id\">$(basename "$desktop")</launchable>" "$metainfo" ||
    fault "$metainfo launches another desktop file"
grep -qx "Icon=$(basename "$drawing" .svg)" "$desktop" || fault "$desktop names another icon"
[[ $(grep -m 1 '<release ' "$metainfo") == *" version=\"$version\" "* ]] ||
    fault "the newest release in $metainfo is not $version"
[[ $(zcat -f "$changelog") == "velmora ($version) "* ]] || fault "the newest release in $changelog is not $version"
grep -qF "<url type=\"homepage\">$homepage</url>" "$metainfo" || fault "$metainfo has another home page than $homepage"

[ "$faults" -eq 0 ] || exit 1
[ "$skipped" -eq 0 ] || exit 77
