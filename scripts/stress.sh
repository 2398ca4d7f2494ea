#!/usr/bin/env bash
# make stress: bad input at scale, not part of the tests or CI. Generates each input in a scratch
# folder at half and full size, runs tgxcfg on it under /usr/bin/time, checks the outcome (loaded,
# refused or cut) and prints one line per case:
#   stress: CASE SIZE: SECONDS s, PEAK KB, OUTCOME
# Fails when a run ends by a signal, exceeds STRESS_MAX_KB of memory (default 320 MiB), takes
# longer than STRESS_MAX_SECONDS (default 300) or ends otherwise than expected.
set -uo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build=$(cd "${1:-$top/build}" && pwd)
max_kb=${STRESS_MAX_KB:-327680}
max_seconds=${STRESS_MAX_SECONDS:-300}
tgxcfg=$build/tgxcfg
scratch=$(mktemp -d "${TMPDIR:-/tmp}/tgx-stress.XXXXXX")
trap 'rm -rf "$scratch"' EXIT
failed=0

# The sample installation named by a registry file, the example projects, the simulator first on
# PATH: as scripts/run.sh starts the tool.
cp -r "$top/simulator/installation" "$scratch/installation"
cp "$top"/docs/examples/boiler_house.* "$scratch/"
cat > "$scratch/registry.ini" <<INI
[HKEY_CURRENT_USER/Software/TARN SYSTEMS LTD/TGx Software Suite]
Path=$scratch/installation/
Version=6.2.2
FirmwareVersion=6.2.2
TemplatesVersion=3.1.0
INI
export TGX_REGISTRY=$scratch/registry.ini TGX_DOCUMENTS=$scratch/Documents TGXSIM_HOME=$scratch/gateway
export PATH="$build/simulator/bin:$PATH"
ct_cfg=$scratch/installation/tgxtemplates/BUILD/ct.cfg
cp "$ct_cfg" "$scratch/ct.cfg.sample"
cd "$scratch" || exit 1

# run CASE SIZE EXPECTED_STATUS OUTCOME_CHECK -- COMMAND...: OUTCOME_CHECK is a command whose
# output is the outcome, empty when the outcome is wrong.
run() {
  local name=$1 size=$2 expected=$3 check=$4
  shift 5
  timeout -s KILL "$max_seconds" /usr/bin/time -f '%e %M' -o time.txt "$@" >out.txt 2>err.txt
  local status=$?
  local seconds kb outcome verdict=ok
  read -r seconds kb < <(tail -n 1 time.txt)
  outcome=$(eval "$check")
  if grep -q 'terminated by signal' time.txt || [ "$status" -ge 128 ]; then
    verdict="FAILED: ended by a signal (status $status)"
  elif [ "${kb:-0}" -gt "$max_kb" ]; then
    verdict="FAILED: more than $max_kb KB"
  elif [ "${bound_kb:-0}" -gt 0 ] && [ "${kb:-0}" -gt "$bound_kb" ]; then
    verdict="FAILED: more than $bound_kb KB, the bound for this input"
  elif [ "$status" -ne "$expected" ] || [ -z "$outcome" ]; then
    verdict="FAILED: status $status, expected $expected; $(head -c 200 err.txt)"
  fi
  printf 'stress: %-38s %8s: %7s s, %8s KB, %s\n' "$name" "$size" "$seconds" "$kb" "${outcome:-?}"
  if [ "$verdict" != ok ]; then
    echo "stress:   $verdict"
    failed=1
  fi
}

mb() { awk -v b="$(stat -c %s "$1")" 'BEGIN { printf "%.0f MB", b / 1e6 }'; }

# A project file of 100 MB: the example project, then lines of a damaged file.
for bytes in 50000000 100000000; do
  { cat boiler_house.prj; yes 'DEVICE NAME:FT-101 Feedwater flow, a line of a damaged project file' |
    head -c $((bytes - $(stat -c %s boiler_house.prj))); } > big.prj
  run "project file (show)" "$(mb big.prj)" 1 \
    'grep -q "^tgxcfg: cannot read big.prj" err.txt && echo "refused: cannot read"' -- "$tgxcfg" show big.prj
done

# A file of one line of 50 MB, as a project file.
for bytes in 25000000 50000000; do
  head -c "$bytes" /dev/zero | tr '\0' 'A' > line.prj
  run "one-line project file (check)" "$(mb line.prj)" 1 \
    'grep -q "^tgxcfg: cannot read line.prj" err.txt && echo "refused: cannot read"' -- "$tgxcfg" check line.prj
done

# A ct.cfg of a million DEV_TYPE lines after the sample's own: read at start-up, before the
# project. Within the limit on text files the first 256 types count; beyond it the file reads
# as an empty table, and check finds every device's type missing.
device_types() {
  cat "$scratch/ct.cfg.sample" > "$ct_cfg"
  awk -v n="$1" 'BEGIN { for (i = 1; i <= n; ++i)
    printf "DEV_TYPE Type%07d      generictmpl.ini     genmb1tmpl.ini    genmb2tmpl.ini    genmb3tmpl.ini    genmbtmpl.ini\n", i }' >> "$ct_cfg"
}
for lines in 60000 120000; do
  device_types $lines
  run "ct.cfg $lines DEV_TYPE (check)" "$(mb "$ct_cfg")" 0 'echo "loaded: no problem found"' -- "$tgxcfg" check boiler_house.prj
done
for lines in 500000 1000000; do
  device_types $lines
  run "ct.cfg $lines DEV_TYPE (check)" "$(mb "$ct_cfg")" 1 \
    'grep -q "^tgxcfg: cannot read .*ct.cfg" err.txt && echo "refused: cannot read ct.cfg"' -- "$tgxcfg" check boiler_house.prj
done

# Files of nothing but line ends, just within the limit on text files: read line by line, in
# memory bounded by the file (at most 8 times its size and 20 MB; bound_kb), whatever the count of
# lines. A map must not hold more lines than a gateway takes, so such a map file is refused.
line_ends() { head -c "$2" /dev/zero | tr '\0' '\n' > "$1"; }
bound() { bound_kb=$(( $(stat -c %s "$1") * 8 / 1024 + 20480 )); }
for bytes in 8388608 16777216; do
  { cat "$scratch/ct.cfg.sample"; head -c $((bytes - $(stat -c %s "$scratch/ct.cfg.sample"))) /dev/zero | tr '\0' '\n'; } > "$ct_cfg"
  bound "$ct_cfg"
  run "ct.cfg of line ends (check)" "$(mb "$ct_cfg")" 0 'echo "loaded: no problem found"' -- "$tgxcfg" check boiler_house.prj
done
cp "$scratch/ct.cfg.sample" "$ct_cfg"
for bytes in 8388608 16777216; do
  { cat boiler_house.prj; head -c $((bytes - $(stat -c %s boiler_house.prj))) /dev/zero | tr '\0' '\n'; } > ends.prj
  cp boiler_house.mbd ends.mbd
  bound ends.prj
  run "project of line ends (show)" "$(mb ends.prj)" 0 'grep -q "^TGX TAGNAME:BOILER1" out.txt && echo loaded' -- \
    "$tgxcfg" show ends.prj
  run "project of line ends (check)" "$(mb ends.prj)" 0 'echo "loaded: no problem found"' -- "$tgxcfg" check ends.prj
  cp ends.prj ends2.prj && cp ends.mbd ends2.mbd
  bound_kb=$((bound_kb * 2))
  run "two projects of line ends (diff)" "$(mb ends.prj)" 0 'echo "loaded: the same"' -- \
    "$tgxcfg" diff ends.prj ends2.prj
  line_ends ends.mbd "$bytes"
  bound ends.mbd
  run "map of line ends (show)" "$(mb ends.mbd)" 1 \
    'grep -q "^tgxcfg: cannot read the map file ends.mbd" err.txt && echo "refused: cannot read"' -- "$tgxcfg" show ends.prj
done
bound_kb=0

# A map generator (inifile) printing nine million empty lines into the automatic map: the map
# keeps as many lines as a gateway takes.
tgxsim reset >/dev/null && tgxsim fault add inifile match=-mb exit=0 output= repeat=9000000 >/dev/null
cp boiler_house.prj generated.prj && cp "$top/docs/examples/boiler_house.mbd" generated.mbd
run "inifile 9000000 lines (map-mode)" "9 MB" 0 \
  'kept=$(wc -l < generated.mbd); [ "$kept" -eq 65536 ] && echo "cut: $kept lines kept"' -- \
  "$tgxcfg" map-mode generated.prj automatic --yes
tgxsim fault clear >/dev/null

# A tool that prints ten million lines: the gateway has no map file, so the import falls back to
# ttmbprint, which prints the same map line N times. The output is cut; the map gets the lines kept.
for lines in 5000000 10000000; do
  tgxsim reset >/dev/null && tgxsim fault add ttgetfile match=TG7/MBMAP1.csv exit=1 >/dev/null &&
    tgxsim fault add ttmbprint exit=0 "output=HOLDING,40001,ABCD,FLOAT,FT101_PV,Feedwater flow,2" repeat=$lines >/dev/null
  cp "$top/docs/examples/boiler_house.mbd" boiler_house.mbd
  run "ttmbprint $lines lines (import-map)" "$((lines * 51 / 1000000)) MB" 0 \
    'kept=$(wc -l < boiler_house.mbd); [ "$kept" -eq 65536 ] && echo "cut: $kept lines kept"' -- \
    "$tgxcfg" import-map boiler_house.prj --from-target=127.0.0.1
done

exit $failed
