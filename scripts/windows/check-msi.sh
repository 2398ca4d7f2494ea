#!/usr/bin/env bash
# Checks the MSI as an administrator would meet it: installed silently under Wine into a fresh
# prefix, the programs are in Program Files and the Start menu has the shortcut, no registry key
# of the suite was written, and an uninstall removes the programs again.
#
#   scripts/windows/check-msi.sh MSI
set -euo pipefail
top=$(cd "$(dirname "$0")/../.." && pwd)
source "$top/scripts/windows/wine-env.sh"
msi=$(readlink -f "${1:?MSI file}")
wine_new_prefix

folder="$WINEPREFIX/drive_c/Program Files/TARN SYSTEMS LTD/TG7 Configuration Tool"
# Windows puts a per-machine shortcut into the common Start menu; Wine's msiexec into the
# installing user's. Either counts.
shortcut_name="Start Menu/Programs/TG7+ Configuration tool.lnk"
shortcuts=("$WINEPREFIX/drive_c/ProgramData/Microsoft/Windows/$shortcut_name"
           "$WINEPREFIX/drive_c/users/$(id -un)/AppData/Roaming/Microsoft/Windows/$shortcut_name")
some_shortcut() { [ -f "${shortcuts[0]}" ] || [ -f "${shortcuts[1]}" ]; }
no_shortcut() { ! some_shortcut; }
no_key() { ! timeout 60 wine reg query "$1" </dev/null >/dev/null 2>&1; }

failed=0
check() {  # check DESCRIPTION COMMAND...
  if "${@:2}"; then echo "  ok: $1"; else echo "  FAILED: $1" >&2; failed=1; fi
}

echo "Installing $(basename "$msi") under Wine"
check "msiexec /i succeeds" timeout 300 wine msiexec /i "$msi" /qn </dev/null
check "tgxconfig.exe in Program Files" test -f "$folder/tgxconfig.exe"
if msiinfo export "$msi" File | grep -q '^tgxcfg.exe'; then
  check "tgxcfg.exe in Program Files" test -f "$folder/tgxcfg.exe"
fi
check "Start-menu shortcut" some_shortcut
check "no suite key written" no_key 'HKCU\Software\TARN SYSTEMS LTD\TGx Software Suite'
check "no connect key written" no_key 'HKLM\Software\TARN SYSTEMS LTD\TGx Connect'
check "msiexec /x succeeds" timeout 300 wine msiexec /x "$msi" /qn </dev/null
check "programs removed" test ! -e "$folder/tgxconfig.exe"
check "shortcut removed" no_shortcut
exit $failed
