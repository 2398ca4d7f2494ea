#!/usr/bin/env bash
# tgxcfg's whole commands on the largest project (16 devices x 50 commands, a 65,536-line map),
# each against its floor measured in the same run, one line each as scripts/bench.sh prints them:
#   bench: NAME = VALUE (aim <= AIM)
#   bench/whole_commands.sh BUILD   (RUNS pairs of runs each, default 15)
# A command and its floor run in turn, A B A B ...; the figure is the median of each pair's ratio
# of wall times, which the machine's other work disturbs less than a ratio of two medians. The
# floors are bench/same_bytes: a process that reads files and writes the same bytes, each written
# file flushed to the disk as the tool's saves are. Peak memory from /usr/bin/time, the median of
# five runs (it varies by some 0.2 MB from run to run).
# Every output is compared with what it must be before a figure is printed.
set -euo pipefail
build=$(cd "${1:-build}" && pwd)
top=$(cd "$(dirname "$0")/.." && pwd)
tgxcfg=$build/tgxcfg
same=$build/bench/same_bytes
runs=${RUNS:-15}
scratch=$(mktemp -d "${TMPDIR:-/tmp}/tgx-whole.XXXXXX")
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"

# A project of DEVICES devices with COMMANDS commands each and a map of LINES lines, written as the
# tool writes it (CR LF); `one` is its one-device counterpart.
project() {  # NAME DEVICES COMMANDS LINES
  awk -v devices="$2" -v commands="$3" 'BEGIN {
    ORS = "\r\n"
    print "TGX VERSION:6.2.2"; print ""; print "TGX TAGNAME:Maximal"; print "MODE:GATEWAY"
    print "REMOTE IP:0.0.0.0"; print "BRIDGE NETWORK BUFFER TIME:20"; print "VCP PORT NUMBER:772"
    print "MTCP PORT NUMBER:502"; print "MENCAP PORT NUMBER:1100"; print "INTERCOM PORT NUMBER:503"
    print "SYSLOG PORT NUMBER:50000"; print "HARTIPTCP PORT NUMBER:5094"; print "TMS ADDRESS:pool.ntp.org"
    print "TMS ENABLE:1"; print "TGX PRIMARY MASTER:1"; print "POLLING DEFERRAL MODE:NONE"
    print "SERIAL PORT FUNCTION:MODEM"; print "SERIAL PORT TYPE:RS232"; print "SERIAL PORT BAUDRATE:9600"
    print "SERIAL PORT PARITY:NOPARITY"; print "SERIAL PORT STOPBITS:1"; print "MODBUS RTU ADDRESS:1"
    print "AUTOMATIC MODBUS MAP:0"; print "MODBUS FLOAT SWAP BYTES:0"; print "MODBUS FLOAT SWAP WORDS:1"
    print "MODBUS FLOAT SWAP LONGS:0"; print "MODBUS NAN CTRL:0"; print "DEVICE COUNT:" devices
    for (d = 0; d < devices; ++d) {
      print "FOR DEVICE:" d; print "DEVICE NAME:Device " d; print "TYPE:Generic"; print "POLL ADDRESS:" d
      print "LONG ADDRESS:"; print "ENABLE:1"
      for (c = 0; c < commands; ++c) { print "HARTCMD:" c " 60 1 0"; print "CMDARGS:1 2 3 4 5 6 7 8 " }
    }
  }' > "$1.prj"
  awk -v lines="$4" 'BEGIN { for (r = 0; r < lines; ++r)
    printf "HOLDING,%d,ABCD,FLOAT,TAG%d,Register %d,2\r\n", 40001 + r, r, r }' > "$1.mbd"
}
project max 16 50 65536
project one 1 1 1
project quarter 16 50 16384
# Near-identical: one map line changed.
cp max.prj max2.prj
sed 's/,TAG30000,Register 30000,/,TAG30000,Register X,/' max.mbd > max2.mbd
cp quarter.prj quarter2.prj
sed 's/,TAG3000,Register 3000,/,TAG3000,Register X,/' quarter.mbd > quarter2.mbd

# The sample installation and a registry naming it; stand-in tools that answer at once: ttdevtype
# a shell script printing the gateway's versions, the others `true`.
cp -r "$top/simulator/installation" installation
cat > registry.ini <<INI
[HKEY_CURRENT_USER/Software/TARN SYSTEMS LTD/TGx Software Suite]
Path=$scratch/installation/
Version=6.2.2
FirmwareVersion=6.2.2
TemplatesVersion=3.1.0
INI
mkdir tools
printf '#!/bin/sh\necho TG7-Plus\necho "Firmware: TG7main-v6.2.2-build7"\necho "Templates: TG7templates-v3.1.0-build3"\n' \
  > tools/ttdevtype
chmod +x tools/ttdevtype
for tool in ttbuild ttrestore ttreboot; do ln -s "$(type -P true)" "tools/$tool"; done
export TGX_REGISTRY=$scratch/registry.ini TGX_DOCUMENTS=$scratch/Documents PATH="$scratch/tools:$PATH"
out=$scratch/installation/tgxconfigure

fail() { echo "bench: FAILED: $*" >&2; exit 1; }
ms() { awk -v s="$1" -v e="$2" 'BEGIN { printf "%.3f\n", (e - s) * 1000 }'; }
median() { sort -g | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }
# pairs A B: RUNS runs of each in turn; prints "ratio-median A-median-ms B-median-ms".
pairs() {
  local a=$1 b=$2 start middle end
  : > times
  for _ in $(seq "$runs"); do
    start=$EPOCHREALTIME; $a >/dev/null 2>&1 || fail "$a"
    middle=$EPOCHREALTIME; $b >/dev/null 2>&1 || fail "$b"
    end=$EPOCHREALTIME
    echo "$(ms "$start" "$middle") $(ms "$middle" "$end")" >> times
  done
  echo "$(awk '{ print $1 / $2 }' times | median) $(cut -d' ' -f1 times | median) $(cut -d' ' -f2 times | median)"
}
peak_kb() {
  for _ in 1 2 3 4 5; do
    /usr/bin/time -f %M -o peak "$@" >/dev/null 2>&1 || true
    tail -n 1 peak
  done | median
}
row() {  # NAME "ratio a b" AIM
  read -r ratio a b <<<"$2"
  printf 'bench: %s = %.2fx (aim <= %sx; %.1f ms against %.1f ms)\n' "$1" "$ratio" "$3" "$a" "$b"
}
size() { stat -c %s "$@" | awk '{ s += $1 } END { print s }'; }

# resave: the project and its map read and written again. A save leaves a file that already holds
# its bytes as it is, so the files saved before are first made a project of one line and an empty map.
resave() { printf 'TGX TAGNAME:Maximal\r\n' > saved.prj; : > saved.mbd; "$tgxcfg" resave max.prj saved.prj; }
resave_floor() { "$same" max.prj floor.prj max.mbd floor.mbd; }
resave && cmp -s saved.prj max.prj && cmp -s saved.mbd max.mbd || fail "resave did not write the same bytes"
row "resave, whole process" "$(pairs resave resave_floor)" 3

# generate: the four files of the build folder, none flushed (scratch files for ttbuild; the
# project file is read once, as the tool reads it).
generate() { "$tgxcfg" generate max.prj --no-build; }
generate || fail "generate"
cmp -s "$out/ADDITIONAL/MBMAP1.csv" max.mbd && cmp -s "$out/ADDITIONAL/tgxconfig.prj" max.prj || fail "generate's files"
mkdir generated
cp "$out/INCLUDE/ct.ini" "$out/ADDITIONAL/dbsave.txt" "$out/ADDITIONAL/tgxconfig.prj" "$out/ADDITIONAL/MBMAP1.csv" generated/
generate_floor() {
  "$same" --no-flush generated/ct.ini "$out/INCLUDE/ct.ini" --no-flush generated/dbsave.txt "$out/ADDITIONAL/dbsave.txt" \
    --no-flush generated/tgxconfig.prj "$out/ADDITIONAL/tgxconfig.prj" --no-flush generated/MBMAP1.csv "$out/ADDITIONAL/MBMAP1.csv"
}
row "generate, whole process" "$(pairs generate generate_floor)" 3

# configure with instant tools: against the same command on a one-device project.
configure() { "$tgxcfg" configure max.prj --target=127.0.0.1; }
configure_one() { "$tgxcfg" configure one.prj --target=127.0.0.1; }
configure | grep -q '^Configuration Complete' || fail "configure"
read -r ratio a one <<<"$(pairs configure configure_one)"
printf 'bench: configure, instant tools = %.2fx the one-device project (aim <= 1.5x; %.1f ms against %.1f ms; %.1f MB against %.1f MB)\n' \
  "$ratio" "$a" "$one" "$(peak_kb "$tgxcfg" configure max.prj --target=127.0.0.1 | awk '{ print $1 / 1024 }')" \
  "$(peak_kb "$tgxcfg" configure one.prj --target=127.0.0.1 | awk '{ print $1 / 1024 }')"
# export-map, CSV and the text table: against writing the same bytes, flushed as the export is.
for layout in csv txt; do
  export_map() { "$tgxcfg" export-map max.prj "exported.$layout"; }
  export_map || fail "export-map"
  cp "exported.$layout" "expected.$layout"
  export_floor() { "$same" "expected.$layout" "floor.$layout"; }
  row "export-map $layout, whole process" "$(pairs export_map export_floor)" 3
done
{ printf 'SECTION,ADDRESS,BYTE_ORDER,TYPE,TAGNANE,DESCRIPTION,REG_COUNT\r\n'; cat max.mbd; } | cmp -s - expected.csv ||
  fail "the CSV export is not the header and the map"
# Memory: what the largest project's export takes beyond the one-device project's, less the
# growth of the input (its project and map files): a constant, whatever the map's size.
grown=$(( $(peak_kb "$tgxcfg" export-map max.prj exported.txt) - $(peak_kb "$tgxcfg" export-map one.prj exported.txt) ))
input=$(( $(size max.prj max.mbd) - $(size one.prj one.mbd) ))
printf 'bench: export-map memory = the input %+.2f MB (aim <= the input + 1 MB; +%.1f MB for +%.1f MB of input)\n' \
  "$(awk -v k="$grown" -v b="$input" 'BEGIN { print (k * 1024 - b) / 1048576 }')" \
  "$(awk -v k="$grown" 'BEGIN { print k / 1024 }')" "$(awk -v b="$input" 'BEGIN { print b / 1048576 }')"

# diff of two near-identical projects: memory against the inputs, time at a quarter and the whole.
# Status 1: they differ.
diff_max() { "$tgxcfg" diff max.prj max2.prj; [ $? -eq 1 ]; }
diff_quarter() { "$tgxcfg" diff quarter.prj quarter2.prj; [ $? -eq 1 ]; }
[ "$("$tgxcfg" diff max.prj max2.prj | wc -l)" = 1 ] || fail "diff does not find the one changed line"
peak=$(peak_kb "$tgxcfg" diff max.prj max2.prj)
inputs=$(size max.prj max.mbd max2.prj max2.mbd)
printf 'bench: diff memory = %.2fx the two inputs (aim <= 3x; %.1f MB for %.1f MB)\n' \
  "$(awk -v k="$peak" -v b="$inputs" 'BEGIN { print k * 1024 / b }')" "$(awk -v k="$peak" 'BEGIN { print k / 1024 }')" \
  "$(awk -v b="$inputs" 'BEGIN { print b / 1048576 }')"
read -r _ a b <<<"$(pairs diff_max diff_quarter)"
printf 'bench: diff time, four times the lines = %.2fx (aim <= 4x; %.1f ms against %.1f ms)\n' \
  "$(awk -v a="$a" -v b="$b" 'BEGIN { print a / b }')" "$a" "$b"
