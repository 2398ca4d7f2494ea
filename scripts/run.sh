#!/usr/bin/env bash
# Starts the tool on the embedded default: a working copy of the sample installation and a
# registry file that points at it.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$top/build}
run=$build/run

mkdir -p "$run/installation"
# Fill in what the working copy lacks; what earlier runs wrote there is kept.
cp -rn "$top/simulator/installation/." "$run/installation/"

cat > "$run/registry.ini" <<INI
[HKEY_CURRENT_USER/Software/TARN SYSTEMS LTD/TGx Software Suite]
Path=$run/installation/
Version=6.2.2
FirmwareVersion=6.2.2
TemplatesVersion=3.1.0

[HKEY_LOCAL_MACHINE/Software/TARN SYSTEMS LTD/TGx Connect]
Path=$run/installation/tgxconnect/
Version=2.4.1
INI

# The suite's update checker sits in the software folder (Help > Check For Updates).
ln -sf "$build/simulator/bin/updater" "$run/installation/updater"

export TGX_REGISTRY=$run/registry.ini
# The gateway simulator stands in for the suite's tools; its gateway is kept in the build folder.
export PATH="$build/simulator/bin:$PATH"
export TGXSIM_HOME=${TGXSIM_HOME:-$run/gateway}
# On the first run the simulated multiplexer gets three devices on its loops, so that
# Multiplexer > Scan finds some (`tgxsim mux clear` empties it, simulator/README.md).
if [ ! -f "$TGXSIM_HOME/mux.txt" ]; then
  tgxsim mux add --known 1 0 1000000101 FT101 "Feedwater flow" >/dev/null
  tgxsim mux add --known 2 0 1000000102 PT102 "Drum pressure" >/dev/null
  tgxsim mux add --known 3 0 1000000103 LT103 "Drum level" >/dev/null
fi

# The example projects, in the project folder that the file dialogs open on.
export TGX_DOCUMENTS=$run/Documents
mkdir -p "$TGX_DOCUMENTS/tgxconfigure/PROJECTS"
cp -n "$top"/docs/examples/*.prj "$top"/docs/examples/*.mb* "$TGX_DOCUMENTS/tgxconfigure/PROJECTS/"
if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  echo "No display: starting the tool under xvfb-run (nothing will be visible)." >&2
  exec xvfb-run -a -s '-screen 0 1600x1200x24' "$build/tgxconfig" "$@"
fi
exec "$build/tgxconfig"
