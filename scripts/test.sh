#!/usr/bin/env bash
# Runs every test of a build folder; the GUI tests get a virtual display when there is none.
set -euo pipefail
build=${1:?build folder}
cd "$build"
if [ -z "${DISPLAY:-}" ]; then
  exec xvfb-run -a -s '-screen 0 1600x1200x24' ctest --output-on-failure -j2
fi
exec ctest --output-on-failure -j2
