#!/usr/bin/env bash
# The benchmarks, then the figures users feel as ratios against their floor, one a line:
#   bench: NAME = VALUE (aim <= AIM)
# Start-up: tgxconfig on the embedded default of `make run` (scripts/run.sh sets it up) against
# bench/empty_frame, both ended by TGX_EXIT_WHEN_SHOWN's hook (src/desktop/exit_when_shown.h) on a
# private Xvfb display; RUNS runs of each, alternating, with their wall times and peak RSS.
# Configure's own time: BM_ConfigureOwnTime, the workflow against the simulator minus its tools.
# tgxcfg's whole commands on the largest project against their floors: bench/whole_commands.sh.
set -euo pipefail
build=$(cd "${1:-build}" && pwd)
top=$(cd "$(dirname "$0")/.." && pwd)
csv=$("$build/bench/core_bench" --benchmark_format=csv 2>/dev/null | grep '^"')
echo "$csv" | cut -d, -f1,3,5 | tr -d '"'
real() { echo "$csv" | awk -F, -v n="\"$1\"" '$1 == n { print $3 }'; }
ratio() {
  awk -v a="$(real "$2")" -v b="$(real "$3")" -v name="$1" -v aim="$4" \
    'BEGIN { printf "bench: %s = %.2fx (aim <= %sx)\n", name, a / b, aim }'
}
ratio generator BM_GenerateConfigurationMaximalProject BM_WriteSameBytes 2
ratio "load and save" BM_LoadAndSaveMaximalProject BM_ReadAndWriteSameBytesFlushed 2
ratio "export-map csv, in-process" BM_ExportMap/csv/65536 BM_PlainWriteFlushed/csv/65536 3
ratio "export-map txt, in-process" BM_ExportMap/text/65536 BM_PlainWriteFlushed/text/65536 3

configure_ms=$(echo "$csv" | awk -F, '$1 ~ /^"BM_ConfigureOwnTime.*_median"$/ { print $3 }')
printf 'bench: Configure = %.1f ms (aim <= 20 ms)\n' "$configure_ms"

bash "$top/bench/whole_commands.sh" "$build"

# Start-up, on a display of its own that is taken down at the end.
runs=${RUNS:-21}
scratch=$(mktemp -d)
Xvfb -displayfd 3 -nolisten tcp -screen 0 1600x1200x24 3>"$scratch/display" 2>/dev/null &
xvfb=$!
trap 'kill $xvfb 2>/dev/null; rm -rf "$scratch"' EXIT
for _ in $(seq 100); do [ -s "$scratch/display" ] && break; sleep 0.1; done
export DISPLAY=":$(cat "$scratch/display")" TGX_EXIT_WHEN_SHOWN=1
# Once through run.sh, which prepares build/run as `make run` does; then the same variables.
bash "$top/scripts/run.sh" "$build"
export TGX_REGISTRY=$build/run/registry.ini PATH="$build/simulator/bin:$PATH" TGXSIM_HOME=$build/run/gateway \
  TGX_DOCUMENTS=$build/run/Documents
measure() {  # program, name: appends "milliseconds kilobytes" to $scratch/name
  local start=$EPOCHREALTIME
  /usr/bin/time -f %M -o "$scratch/rss" "$1"
  local end=$EPOCHREALTIME
  echo "$(awk -v s="$start" -v e="$end" 'BEGIN { print (e - s) * 1000 }') $(cat "$scratch/rss")" >>"$scratch/$2"
}
for _ in $(seq "$runs"); do
  measure "$build/bench/empty_frame" empty
  measure "$build/tgxconfig" tool
done
# The ratio is the median of each run's ratio to the empty frame's run beside it, which the
# machine's other work disturbs less than a ratio of the two medians; memory is the medians'.
ratios=$(paste -d' ' "$scratch/tool" "$scratch/empty" | awk '{ print $1 / $3 }' | sort -g)
echo "$ratios" | awk '{ v[NR] = $1 } END { printf "bench: start-up = %.2fx (aim <= 1.15x)\n", v[int((NR + 1) / 2)] }'
median() { cut -d' ' -f2 "$scratch/$1" | sort -g | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }
awk -v a="$(median tool)" -v b="$(median empty)" \
  'BEGIN { printf "bench: start-up memory = %+.1f MB (aim <= 8 MB)\n", (a - b) / 1024 }'
