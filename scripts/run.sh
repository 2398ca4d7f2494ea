#!/usr/bin/env bash
# Starts the tool on the embedded default: the gateway simulator's tools first on PATH, a working
# copy of the sample installation and a registry file that points at it, all in BUILD/run. The
# launcher is the one the tgxconfig-simulator package installs as tgxconfig-demo
# (packaging/linux/tgxconfig-demo.in), pointed at the build tree.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$top/build}

export TGX_DEMO_STATE=$build/run
export TGX_DEMO_TOOLS=$build/simulator/bin
export TGX_DEMO_INSTALLATION=$top/simulator/installation
export TGX_DEMO_EXAMPLES=$top/docs/examples
export TGX_DEMO_PROGRAM=$build/tgxconfig
launcher=$build/packaging/tgxconfig-demo

if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  echo "No display: starting the tool under xvfb-run (nothing will be visible)." >&2
  exec xvfb-run -a -s '-screen 0 1600x1200x24' bash "$launcher"
fi
exec bash "$launcher"
