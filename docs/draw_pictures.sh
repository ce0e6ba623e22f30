#!/usr/bin/env bash
# Draws the pictures of these pages anew, by the program itself: docs/draw_pictures.sh [PATH OF zel]
set -euo pipefail
zel=$(realpath -- "${1:-build/release/bin/zel}")
cd -- "$(dirname -- "${BASH_SOURCE[0]}")"

# draw KIND EXAMPLE NAME [OPTIONS]: a curve with a gap is a picture too.
draw() {
    "$zel" graph "$1" "../examples/$2.json" -o "pictures/$3.svg" "${@:4}" || (($? == 1))
}
# picture KIND EXAMPLE
picture() {
    "$zel" picture "$1" "../examples/$2.json" -o "pictures/$1.svg"
}
for kind in balance conductor methods; do picture "$kind" 380kV-twin-264-34; done
"$zel" sensitivity ../examples/380kV-twin-264-34.json -o pictures/sensitivity.svg
picture situation wind-100-degrees
picture utilisation short-circuit-264-34
draw steady table-264-34 steady-diagram
draw transient transient-twin-264-34 transient-diagram
