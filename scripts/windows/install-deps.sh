#!/usr/bin/env bash
# Installs the Debian packages of the Windows cross build, its Wine tests and its installer,
# only those that are missing. The Linux build's own packages come from scripts/install-deps.sh.
set -euo pipefail

packages=(
  g++-mingw-w64-x86-64-posix libz-mingw-w64-dev
  wine wine64 fonts-wine
  cmake ninja-build make googletest nlohmann-json3-dev dpkg-dev xz-utils ca-certificates
  xvfb xauth x11-utils imagemagick xdotool
  wixl msitools
)

exec bash "$(dirname "$0")/../install-deps.sh" "${packages[@]}"
