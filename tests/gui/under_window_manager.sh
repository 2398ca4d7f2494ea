#!/usr/bin/env bash
# Runs a GUI test program under a window manager (openbox) on a virtual display of its own, as
# users have the tool: windows are decorated, placed and sized by the window manager.
#   tests/gui/under_window_manager.sh PROGRAM [ARGUMENT...]
set -euo pipefail
if [ -z "${TGX_UNDER_WINDOW_MANAGER:-}" ]; then
  export TGX_UNDER_WINDOW_MANAGER=1
  exec xvfb-run -a -s '-screen 0 1280x1024x24' "$0" "$@"
fi
openbox --sm-disable >/dev/null 2>&1 &
wm=$!
trap 'kill $wm 2>/dev/null || true' EXIT
# Started once it has taken the display.
for _ in $(seq 100); do
  xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id' && break
  sleep 0.1
done
"$@"
