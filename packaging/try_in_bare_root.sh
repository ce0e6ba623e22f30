#!/usr/bin/env bash
# Tries the package in a Debian 12 that has nothing else: packaging/try_in_bare_root.sh PACKAGE OUT
# Installs it by apt, rates an example, opens the window by the entry of the menu and the help in it,
# uses the Python package, removes it, and lists what it leaves. Fails where a step does, or where
# anything but the user's own files is left. OUT gets pictures and lists. Needs root, or a user who
# may have name spaces of his own; the packages of that Debian come over the network, some 300 MB.
set -euo pipefail
package=$(realpath -e -- "${1:?the package}")
out=$(realpath -m -- "${2:?a folder for pictures and lists}")
cd -P -- "$(dirname -- "$(readlink -f -- "${BASH_SOURCE[0]}")")/.."
# shellcheck source=cmake/setup.sh
source cmake/setup.sh
install_packages mmdebstrap
mkdir -p -- "$out"
rm -f -- "$out/failed"

# shellcheck disable=SC2016 # the shell of the hooks expands these
# The root lives as long as the hooks run. A step that fails is told, and what was seen is kept.
mmdebstrap --variant=minbase --format=null --skip=cleanup \
    --customize-hook='mkdir -p "$1"/try/seen' \
    --customize-hook="copy-in '$package' packaging/try_inside.sh /try" \
    --customize-hook='chroot "$1" bash /try/try_inside.sh || touch "$1"/try/seen/failed' \
    --customize-hook="sync-out /try/seen '$out'" \
    bookworm - >/dev/null
[[ ! -e $out/failed ]] || { echo "the trial failed: $out/told.txt" >&2 && exit 1; }
cat -- "$out/told.txt"
