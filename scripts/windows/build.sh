#!/usr/bin/env bash
# The Windows build: tgxconfig.exe, tgxcfg.exe (when the tree has it), the gateway simulator's
# executables and the tests, cross-compiled with mingw-w64 against the cached static wxMSW.
#
#   scripts/windows/build.sh [BUILD]        (default build-windows)
#
# From a fresh Debian 12 machine: installs what is missing, builds wxMSW and GoogleTest into the
# cache on first use (about 8 to 12 minutes), then configures and builds.
set -euo pipefail
top=$(cd "$(dirname "$0")/../.." && pwd)
build=${1:-$top/build-windows}

bash "$top/scripts/windows/install-deps.sh"
wx_prefix=$(bash "$top/scripts/windows/wxmsw.sh")
gtest_prefix=$(bash "$top/scripts/windows/gtest.sh")

cmake -S "$top" -B "$build" -G Ninja \
  -DCMAKE_TOOLCHAIN_FILE="$top/cmake/mingw-w64-x86_64.cmake" \
  -DTGX_WINDOWS_PREFIXES="$wx_prefix;$gtest_prefix" \
  -DWX_CONFIG="$wx_prefix/bin/wx-config" \
  -DCMAKE_BUILD_TYPE=Release -DTGX_BUILD_BENCH=OFF >/dev/null
cmake --build "$build"

echo "Windows programs in $build:"
for program in "$build"/tgxconfig.exe "$build"/tgxcfg.exe "$build"/simulator/bin/*.exe; do
  [ -f "$program" ] && echo "  ${program#"$build"/}"
done
true
