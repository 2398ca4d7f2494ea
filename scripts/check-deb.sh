#!/usr/bin/env bash
# Checks the .deb packages of a build folder, as `make package-deb` builds them: lintian (any
# error or warning fails; overrides only in the packages themselves, each with its reason), the
# desktop entry (desktop-file-validate), the AppStream metadata (appstreamcli) and tgxcfg's bash
# completion against the built tgxcfg (scripts/test-completion.sh).
#   scripts/check-deb.sh BUILD_DEB
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build=${1:?build folder}
shopt -s nullglob
packages=("$build"/*.deb)
[ ${#packages[@]} -gt 0 ] || { echo "check-deb: no .deb in $build" >&2; exit 1; }

for deb in "${packages[@]}"; do
    echo "$(basename "$deb"): $(dpkg-deb --field "$deb" Installed-Size) KiB installed; $(dpkg-deb --field "$deb" Depends)"
done

echo "lintian:"
# lintian warns on stderr when run as root (as in CI); that is not about the packages.
lintian --fail-on error,warning "${packages[@]}" 2> >(grep -v 'running with root privileges' >&2)
echo "lintian: no errors or warnings"

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
for deb in "${packages[@]}"; do
    dpkg-deb -x "$deb" "$scratch"
done
desktop=("$scratch"/usr/share/applications/*.desktop)
metainfo=("$scratch"/usr/share/metainfo/*.metainfo.xml)
if [ ${#desktop[@]} -eq 0 ] || [ ${#metainfo[@]} -eq 0 ]; then
    echo "check-deb: no desktop entry or no AppStream metadata in the packages" >&2
    exit 1
fi
desktop-file-validate "${desktop[@]}"
echo "desktop-file-validate: $(basename -a "${desktop[@]}" | tr '\n' ' ')ok"
appstreamcli validate --no-net "${metainfo[@]}"
bash "$top/scripts/test-completion.sh" "$build/tgxcfg" "$scratch/usr/share/bash-completion/completions/tgxcfg"
