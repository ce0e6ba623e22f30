#!/usr/bin/env bash
# An installation works wherever its tree stands, and takes nothing from the build:
# installed_tree.sh BUILD PREFIX RELEASE WINDOWS PYTHON-FOLDER (the last two may be OFF)
set -euo pipefail
build=$(realpath -e -- "$1") prefix=$2 release=$3 windows=$4 python_folder=$5
root=$(mktemp -d)
trap 'rm -rf -- "$root"' EXIT
export HOME=$root/home QT_QPA_PLATFORM=offscreen
unset XDG_DATA_HOME XDG_CONFIG_HOME ZEL_DATA
mkdir "$HOME"
cd -- "$root"
DESTDIR=$root/tree cmake --install "$build" >/dev/null
tree=$root/tree$prefix
zel=$tree/bin/zel examples=$tree/share/zel/examples

# expect TEXT COMMAND...: TEXT stands in what the command tells.
expect() {
    local text=$1 told
    told=$("${@:2}" 2>&1) || true
    [[ $told == *"$text"* ]] || { echo "${*:2}: told, without \"$text\":
$told" && exit 1; }
}

expect ", release $release" "$zel" --version
expect '1305 A' "$zel" steady "$examples/380kV-twin-264-34.json"
expect '264-AL1/34-ST1A' "$zel" conductor list
"$zel" selftest >/dev/null
"$zel" help first-rating >/dev/null
# A database of old that ends behind its first bytes: the reader of such files has been found.
printf '\0\1\0\0Standard Jet DB\0\1\0\0\0' >old.mdb
expect 'old.mdb' "$zel" db tables old.mdb
[[ $("$zel" db tables old.mdb 2>&1 || true) != *zel-access-reader* ]]
if [[ $windows != OFF ]]; then
    "$zel" picture balance "$examples/380kV-twin-264-34.json" --method TB601 -o balance.svg >/dev/null
    [[ -s balance.svg ]]
    expect 'none.json: No such file' "$zel" desktop none.json
    menu=$tree/share/applications/zel.desktop
    [[ -s $tree/share/icons/hicolor/scalable/apps/$(sed -n 's/^Icon=//p' "$menu").svg ]]
    ! command -v desktop-file-validate >/dev/null || desktop-file-validate "$menu"
fi
if [[ $python_folder != OFF ]]; then
    PYTHONPATH=$tree/$python_folder expect "$release 99" /usr/bin/python3 -B -c \
        'import zel; print(zel.__version__, len(zel.conductors()))'
fi
# The data are those of the tree.
rm -- "$tree/share/zel/conductors.csv"
expect "$tree/share/zel/conductors.csv" "$zel" conductor list
