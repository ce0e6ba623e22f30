#!/usr/bin/env bash
# Draws every window, dialog and page in both languages, several sizes and looks, and fails where a
# text is cut: docs/draw_windows.sh FOLDER [PATH OF desktop_test]
set -euo pipefail
folder=$(realpath -m -- "${1:?a folder for the pictures}")
test=$(realpath -- "${2:-build/release/bin/desktop_test}")
for scale in 1 2 3; do
    QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=$scale ZEL_PICTURES="$folder/scale$scale" \
        "$test" --gtest_brief=1 --gtest_filter='*WindowLooks*'
done
