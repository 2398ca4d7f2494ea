#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need, only those that are missing.
#   scripts/install-deps.sh [PACKAGE...]   (default: the Linux build's packages)
set -euo pipefail

packages=("$@")
[ ${#packages[@]} -gt 0 ] || packages=(
  cmake ninja-build g++ make pkg-config
  libwxgtk3.2-dev
  libgtest-dev libgmock-dev googletest libbenchmark-dev
  nlohmann-json3-dev
  xvfb xauth x11-utils imagemagick fonts-dejavu-core openbox
  ansible-core
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
