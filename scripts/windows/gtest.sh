#!/usr/bin/env bash
# Builds GoogleTest for the mingw-w64 cross build from Debian's googletest sources into the same
# cache as wxMSW (see wxmsw.sh), keyed by the googletest version, the flags and the compiler, and
# prints the installation prefix.
set -euo pipefail
top=$(cd "$(dirname "$0")/../.." && pwd)
cache=${TGX_WINDOWS_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/tgx-windows}
toolchain=$top/cmake/mingw-w64-x86_64.cmake

# No pthreads in GoogleTest: the win32 API is its threading layer under mingw.
cmake_flags=(-G Ninja -DCMAKE_BUILD_TYPE=Release -DBUILD_GMOCK=ON -Dgtest_disable_pthreads=ON)
gtest_version=$(dpkg-query -W -f='${Version}' googletest)
key_text="googletest $gtest_version
flags ${cmake_flags[*]}
compiler $(x86_64-w64-mingw32-g++-posix -dumpfullversion) ($(dpkg-query -W -f='${Package} ${Version}' g++-mingw-w64-x86-64-posix))"
key=$(printf '%s\n' "$key_text" | sha256sum | cut -c1-16)
prefix=$cache/gtest-${gtest_version%%-*}-$key

if [ ! -f "$prefix/.complete" ]; then
  mkdir -p "$cache"
  exec 9>"$prefix.lock"
  flock 9
  if [ ! -f "$prefix/.complete" ]; then
    work=$cache/work-$key
    rm -rf "$work" "$prefix"
    cmake -S /usr/src/googletest -B "$work" "${cmake_flags[@]}" -DCMAKE_TOOLCHAIN_FILE="$toolchain" \
      -DCMAKE_INSTALL_PREFIX="$prefix" >"$cache/gtest-$key.log" 2>&1 &&
      cmake --build "$work" >>"$cache/gtest-$key.log" 2>&1 &&
      cmake --install "$work" >>"$cache/gtest-$key.log" 2>&1 ||
      { tail -n 30 "$cache/gtest-$key.log" >&2; exit 1; }
    printf '%s\n' "$key_text" > "$prefix/key.txt"
    rm -rf "$work" "$cache/gtest-$key.log"
    touch "$prefix/.complete"
  fi
fi
echo "$prefix"
