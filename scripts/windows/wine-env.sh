# Sourced by the Windows test scripts: one fresh, headless 64-bit Wine prefix per run, removed
# with everything Wine left in /tmp when the script ends.

export WINEARCH=win64 WINEDEBUG=-all
# No Mono or Gecko download prompts: nothing here needs .NET or a browser engine.
export WINEDLLOVERRIDES="mscoree,mshtml="

wine_reg() { timeout 60 wine reg "$@" </dev/null >/dev/null 2>&1; }

# Wine's services start with the first Wine process of a server and inherit its pipes; started
# here, before ctest or a pipe of ours, nobody waits on them. The server stays until stopped.
wine_start() {
  wineserver -p </dev/null >/dev/null 2>&1
  timeout 120 wine cmd /c exit 0 </dev/null >/dev/null 2>&1
}

wine_stop() {
  wineserver -k </dev/null >/dev/null 2>&1 || true  # 1 when none runs
  wineserver -w </dev/null >/dev/null 2>&1 || true
}

wine_cleanup() {
  # The server's socket folder is named after the prefix's device and inode.
  local server
  server=$(printf 'server-%x-%x' "0x$(stat -c %D "$WINEPREFIX")" "$(stat -c %i "$WINEPREFIX")")
  wine_stop
  rm -rf "$WINEPREFIX"
  for dir in "${TMPDIR:-/tmp}"/wine-*/"$server"; do
    [ -d "$dir" ] && rm -rf "$dir" && rmdir "$(dirname "$dir")" 2>/dev/null
  done
  return 0
}

# Makes the prefix, without a display: the null graphics driver (without a display wxExecute
# waits for ever for its hidden window) and no crash debugger (the debugger named does not exist,
# so a crash ends the process instead of waiting for a person).
wine_new_prefix() {
  export WINEPREFIX
  WINEPREFIX=$(mktemp -d "${TMPDIR:-/tmp}/tgx-wine.XXXXXX")
  trap wine_cleanup EXIT
  unset DISPLAY
  wine_start
  wine_reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f
  wine_reg add 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\AeDebug' /v Debugger /d none /f
  wine_reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f
}
