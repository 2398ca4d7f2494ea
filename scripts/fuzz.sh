#!/usr/bin/env bash
# Builds the fuzz harnesses (fuzz/) with clang, libFuzzer, ASan and UBSan in their own folder and
# runs each for SECONDS on the seed corpus of fuzz/corpus/<harness>/; new inputs found go to
# BUILD/corpus/<harness>/, inputs that crash or hang (30 s: a run of captured_flood_fuzz takes about
# a second of CPU, several on a busy machine) to BUILD/artifacts/.
#   scripts/fuzz.sh [SECONDS] [BUILD]   (default: 60 s each, build-fuzz)
set -euo pipefail

seconds=${1:-60}
build=${2:-build-fuzz}
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"

bash scripts/install-deps.sh clang-14 libfuzzer-14-dev
CC=clang-14 CXX=clang++-14 cmake -S fuzz -B "$build" -G Ninja >/dev/null
cmake --build "$build" -j2

mkdir -p "$build/artifacts" "$build/logs"
total=0
failed=()
for source in fuzz/*_fuzz.cpp; do
  name=$(basename "$source" .cpp)
  mkdir -p "$build/corpus/$name"
  log="$build/logs/$name.log"
  status=0
  asan=detect_leaks=0
  # A flood run allocates hundreds of MB: freed memory is reused and given back soon, else the
  # process grows past the RSS limit within minutes.
  [ "$name" != captured_flood_fuzz ] || asan+=:quarantine_size_mb=16:allocator_release_to_os_interval_ms=100
  ASAN_OPTIONS=$asan UBSAN_OPTIONS=print_stacktrace=1 \
    "$build/$name" -max_total_time="$seconds" -timeout=30 -rss_limit_mb=2048 -print_final_stats=1 \
    -artifact_prefix="$build/artifacts/$name-" "$build/corpus/$name" "fuzz/corpus/${name%_fuzz}" \
    >"$log" 2>&1 || status=$?
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -1)
  runs=${runs:-0}
  total=$((total + runs))
  if [ "$status" -ne 0 ]; then
    failed+=("$name")
    printf '%-28s %12s executions  FAILED (exit %d), see %s\n' "$name" "$runs" "$status" "$log"
  else
    printf '%-28s %12s executions  %s\n' "$name" "$runs" "$(grep -E '^#[0-9]+[[:space:]]+DONE' "$log" | tail -1)"
  fi
done
printf '%-28s %12s executions\n' "total" "$total"
if [ ${#failed[@]} -gt 0 ]; then
  echo "Findings in: ${failed[*]}" >&2
  exit 1
fi
