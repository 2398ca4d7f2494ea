#!/usr/bin/env bash
# Refreshes the pictures of the user guide (docs/images/): the GUI tests' table of windows run
# under a window manager against the gateway simulator, each picture the guide shows reduced to a
# palette of 64 colours (a few tens of KB each).
#   scripts/screenshots.sh BUILD
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build=$(cd "${1:?build folder}" && pwd)
shots=$build/test-output/window-manager
rm -rf "$shots"
TGX_SCREENSHOT_DIR=$shots "$top/tests/gui/under_window_manager.sh" \
  "$build/tests/gui_tests" --gtest_filter='WholeWindows.*' >"$build/test-output/screenshots.log" 2>&1 ||
  { tail -40 "$build/test-output/screenshots.log" >&2; exit 1; }
mkdir -p "$top/docs/images"
for name in $(grep -o 'images/[a-z_]*\.png' "$top/docs/USER-GUIDE.md" | sort -u); do
  convert "$shots/$(basename "$name")" -strip -dither None -colors 64 "PNG8:$top/docs/$name"
done
du -ch "$top"/docs/images/*.png | tail -1
