#!/usr/bin/env bash
# Builds the Debian package from the optimised program and prints the package's path.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/packages.sh

need_packages "${build_packages[@]}" "${package_packages[@]}"
# Configured each time: the tool that draws the icons may only just have come.
without_tests=()
[ -f build/release/build.ninja ] || without_tests=(-DBUILD_TESTING=OFF)
cmake --preset release "${without_tests[@]}" >/dev/null
cmake --build build/release --target velmora_installed -- --quiet >&2

rm -f build/package/*.deb
cpack --config build/release/CPackConfig.cmake -B "$PWD/build/package" >build/package.log 2>&1 ||
    { cat build/package.log >&2 && exit 1; }
echo "$PWD"/build/package/*.deb
