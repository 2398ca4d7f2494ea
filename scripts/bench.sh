#!/usr/bin/env bash
# The benchmarks, then the figures users feel as ratios against their floor, one a line:
#   bench: NAME = VALUE (aim <= AIM)
# Start-up against an empty frame and Configure's own time are not measured yet.
set -euo pipefail
build=${1:-build}
csv=$("$build/bench/core_bench" --benchmark_format=csv 2>/dev/null | grep '^"')
echo "$csv" | cut -d, -f1,3,5 | tr -d '"'
real() { echo "$csv" | awk -F, -v n="\"$1\"" '$1 == n { print $3 }'; }
ratio() {
  awk -v a="$(real "$2")" -v b="$(real "$3")" -v name="$1" -v aim="$4" \
    'BEGIN { printf "bench: %s = %.2fx (aim <= %sx)\n", name, a / b, aim }'
}
ratio generator BM_GenerateConfigurationMaximalProject BM_WriteSameBytesFlushed 2
ratio "load and save" BM_LoadAndSaveMaximalProject BM_ReadAndWriteSameBytesFlushed 2
