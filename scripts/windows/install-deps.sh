#!/usr/bin/env bash
# Installs the Debian packages of the Windows cross build, its Wine tests and its installer,
# only those that are missing. The Linux build's own packages come from scripts/install-deps.sh.
set -euo pipefail

packages=(
  g++-mingw-w64-x86-64-posix libz-mingw-w64-dev
  wine wine64 fonts-wine
  cmake ninja-build make googletest dpkg-dev xz-utils ca-certificates
  xvfb xauth x11-utils imagemagick xdotool
  wixl msitools
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
