#!/usr/bin/env bash
# Draws the windows that the user guide shows, by the test that looks at all of them:
# docs/draw_guide_pictures.sh FOLDER [PATH OF desktop_test]
set -euo pipefail
folder=$(realpath -m -- "${1:?a folder for the pictures}")
test=$(realpath -- "${2:-build/release/bin/desktop_test}")
QT_QPA_PLATFORM=offscreen ZEL_PICTURES="$folder" "$test" --gtest_brief=1 \
    --gtest_filter='*WindowLooks*/??_1280x800'
