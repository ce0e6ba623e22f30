#!/usr/bin/env bash
# Makes the Debian package of a build and has lintian judge it: packaging/make_deb.sh BUILD OUT
# BUILD is a build of the preset "package", OUT the folder for the package. Prints its path.
# "./run package" installs what this needs, builds and calls it.
set -euo pipefail
build=$(realpath -e -- "${1:?a build of the preset package}")
out=$(realpath -m -- "${2:?a folder for the package}")
sources=$(dirname -- "$(dirname -- "$(readlink -f -- "${BASH_SOURCE[0]}")")")
cd -- "$sources"

refuse() {
    printf 'make_deb.sh: %s\n' "$1" >&2
    exit 1
}

cached() { sed -n "s/^$1:[A-Z]*=//p" "$build/CMakeCache.txt"; }

version=$(cached CMAKE_PROJECT_VERSION)
[[ $(cached CMAKE_INSTALL_PREFIX) == /usr ]] || refuse "$build is not a build of the preset package"
news=$(sed -n "/^## ${version//./\\.}\( .*\)\?\$/,/^## /{/^## /d;p}" CHANGELOG.md)
[[ $news == *[![:space:]]* ]] || refuse "CHANGELOG.md says nothing about release $version"

# All files of the package bear the time of what they were made of, so that two runs are alike.
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct 2>/dev/null || stat -c %Y CHANGELOG.md)
export SOURCE_DATE_EPOCH

work=$out/deb
rm -rf -- "$work"
mkdir -p -- "$work"
cp -r packaging/debian "$work"
{
    printf 'zel (%s) bookworm; urgency=medium\n\n' "$version"
    sed '/^$/d; s/^  /    /; s/^- /  * /' <<<"$news" | fmt -t -w 79
    printf '\n -- %s  %s\n' "$(sed -n 's/^Maintainer: //p' packaging/debian/control)" \
        "$(date -R -u -d "@$SOURCE_DATE_EPOCH")"
} >"$work/debian/changelog"

cd -- "$work"
export ZEL_BUILD=$build ZEL_OUT=$out DEB_RULES_REQUIRES_ROOT=no LC_ALL=C.UTF-8
debian/rules binary >&2
package=$out/zel_${version}_$(dpkg --print-architecture).deb
lintian --fail-on error --tag-display-limit 0 -- "$package" >&2
printf '%s\n' "$package"
