#!/usr/bin/env bash
# Runs the Windows build's tests under Wine: the unit and integration tests through ctest, headless,
# then a smoke test of tgxconfig.exe under Xvfb that keeps a screenshot of its main window in
# BUILD/test-output/main_window_windows.png.
#
#   scripts/windows/test.sh [BUILD]        (default build-windows)
#
# Every run gets a fresh Wine prefix, so nothing of an earlier run (registry, files) is seen.
set -euo pipefail
top=$(cd "$(dirname "$0")/../.." && pwd)
source "$top/scripts/windows/wine-env.sh"

# The smoke test runs inside xvfb-run, in the prefix the first half made.
if [ "${1:-}" = "--smoke" ]; then
  smoke_only=1
  shift
fi
build=$(cd "${1:-$top/build-windows}" && pwd)
out=$build/test-output
mkdir -p "$out"
# The gateway simulator's tools, found on PATH as the tool finds the suite's.
export WINEPATH="Z:${build//\//\\}\\simulator\\bin"

title="TG7+ Configuration tool"
expected_status="TGxSoftwareSuite 6.2.2 , Firmware 6.2.2 , Templates 3.1.0 , TGxConnect 2.4.1"

smoke_test() {
  local shot=$out/main_window_windows.png log=$out/tgxconfig_windows.log
  rm -f "$shot"
  # From here on a real display: the x11 driver, inside one Wine virtual desktop (a window shows
  # fast without a window manager, and the program's exit status is kept).
  wine_reg delete 'HKCU\Software\Wine\Drivers' /v Graphics /f
  wine_stop
  wine_start

  # A simulated gateway that holds the boiler-house example: the tool fetches it with Project,
  # Load From TG7, so the picture shows the panel with a project, as a user would see it.
  local gateway=$out/gateway
  rm -rf "$gateway"
  mkdir -p "$gateway/TG7"
  cp "$top/docs/examples/boiler_house.prj" "$gateway/TG7/tgxconfig.prj"
  cp "$top/docs/examples/boiler_house.mbd" "$gateway/TG7/MBMAP1.csv"
  export TGXSIM_HOME="Z:${gateway//\//\\}"

  local probe status=0 code=0
  timeout 120 wine "$build/tgxconfig.exe" </dev/null >"$log" 2>&1 &
  local tool=$!
  if ! probe=$(timeout 90 wine "$build/tests/window_probe.exe" "$title" 60 </dev/null 2>>"$log"); then
    echo "smoke test: the main window did not show (log: $log)" >&2
    kill "$tool" 2>/dev/null || true
    return 1
  fi
  # Project, Load From TG7, then OK in the address prompt: real clicks and keys, as a user gives
  # them (Wine keeps a process's menus to itself, so no other program can choose the item).
  local wx wy
  read -r wx wy _ <<<"${probe//$'\r'/}"
  xdotool mousemove $((wx + 30)) $((wy + 33)) click 1
  sleep 1
  xdotool mousemove $((wx + 59)) $((wy + 96)) click 1
  sleep 2
  xdotool key Return
  local waited=0
  until grep -q ttmbprint "$gateway/run.log" 2>/dev/null || [ $waited -ge 30 ]; do
    sleep 1
    waited=$((waited + 1))
  done
  if [ $status -ne 0 ] || ! grep -q 'ttgetfile.*exit=0' "$gateway/run.log" 2>/dev/null; then
    echo "smoke test: Load From TG7 did not fetch the project (log: $log)" >&2
    status=1
  fi
  sleep 2
  probe=$(timeout 30 wine "$build/tests/window_probe.exe" "$title" 10 </dev/null 2>>"$log") || status=1
  probe=${probe//$'\r'/}
  local x y width height status_line
  read -r x y width height <<<"$(head -n1 <<<"$probe")"
  status_line=$(sed -n 2p <<<"$probe")
  import -window root -crop "${width}x${height}+${x}+${y}" +repage "$shot"
  echo "smoke test: main window ${width}x${height}, status line \"$status_line\", screenshot $shot"
  if [ "$status_line" != "$expected_status" ]; then
    echo "smoke test: expected the status line \"$expected_status\"" >&2
    status=1
  fi
  timeout 30 wine "$build/tests/window_probe.exe" --close "$title" </dev/null >/dev/null 2>&1 || status=1
  # The fetched project is not saved yet: the tool asks before it is lost; Yes (the default).
  sleep 2
  xdotool key Return
  wait "$tool" || code=$?
  if [ "$code" -ne 0 ]; then
    echo "smoke test: tgxconfig.exe ended with status $code after being closed (log: $log)" >&2
    status=1
  fi
  return $status
}

if [ -n "${smoke_only:-}" ]; then
  smoke_test
  exit
fi

started=$SECONDS
wine_new_prefix
# For the smoke test later: one virtual desktop, the size of the Xvfb screen, so that it lies at
# 0,0 and window places are screen places.
wine_reg add 'HKCU\Software\Wine\Explorer' /v Desktop /d Default /f
wine_reg add 'HKCU\Software\Wine\Explorer\Desktops' /v Default /d 1024x768 /f
# The installation the tool starts on: the sample installation, found through the suite's key,
# with TGx Connect in its folder (Upload Installers sends its installer).
mkdir -p "$WINEPREFIX/drive_c/TGx"
cp -r "$top/simulator/installation/." "$WINEPREFIX/drive_c/TGx/"
suite='HKCU\Software\TARN SYSTEMS LTD\TGx Software Suite'
wine_reg add "$suite" /v Path /d 'C:\TGx\' /f
wine_reg add "$suite" /v Version /d 6.2.2 /f
wine_reg add "$suite" /v FirmwareVersion /d 6.2.2 /f
wine_reg add "$suite" /v TemplatesVersion /d 3.1.0 /f
connect='HKLM\Software\TARN SYSTEMS LTD\TGx Connect'
wine_reg add "$connect" /v Path /d 'C:\TGx\tgxconnect\' /f
wine_reg add "$connect" /v Version /d 2.4.1 /f
# A fresh server, so that everything started from now on sees the null driver.
wine_stop
wine_start
echo "Wine prefix $WINEPREFIX ready in $((SECONDS - started)) s"

result=0
# A test run once more when it fails: now and then Wine fails to start one of two programs
# launched at the same moment (no output at all, 0.01 s); a real failure fails twice.
(cd "$build" && ctest --output-on-failure --timeout 120 -j2 --repeat until-pass:2 </dev/null) || result=1
xvfb-run -a -s '-screen 0 1024x768x24' bash "$0" --smoke "$build" || result=1
echo "Windows tests done in $((SECONDS - started)) s"
exit $result
