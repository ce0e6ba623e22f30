#!/usr/bin/env bash
# Draws every window, dialog and page in both languages, several sizes, looks and scales, by the test
# that looks at them, which fails where a text is cut or faint. With --guide it draws those alone that
# the user guide shows: docs/draw_windows.sh [--guide] FOLDER [PATH OF desktop_test]
set -euo pipefail
scales=(1 2 3) looks='*WindowLooks*'
if [[ ${1-} == --guide ]]; then
    shift
    scales=() looks='*WindowLooks*/??_1280x800'
fi
folder=$(realpath -m -- "${1:?a folder for the pictures}")
test=$(realpath -- "${2:-build/release/bin/desktop_test}")

# draw FOLDER SCALE
draw() {
    QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=$2 ZEL_PICTURES=$1 "$test" --gtest_brief=1 \
        --gtest_filter="$looks"
}
((${#scales[@]})) || draw "$folder" 1
for scale in "${scales[@]}"; do draw "$folder/scale$scale" "$scale"; done
