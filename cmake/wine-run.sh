#!/bin/sh
# Runs one Windows test program under Wine: 64-bit programs under wine64,
# 32-bit ones under 32-bit Wine through the same prefix. The prefix lives
# where the test preset says (the build tree) or in a private folder, never
# in ~/.wine; the first run creates it once, even when tests start in
# parallel. A prefix made before 32-bit Wine was installed has no syswow64
# system and cannot start 32-bit programs: it is made anew.
: "${WINEDEBUG:=-all}"
: "${WINEPREFIX:=${QNUTIL_WINEPREFIX:-$HOME/.qnutil-wine}}"
export WINEDEBUG WINEPREFIX
ready="$WINEPREFIX/drive_c/windows/syswow64/kernel32.dll"
if [ ! -f "$WINEPREFIX/system.reg" ] || [ ! -f "$ready" ]; then
  mkdir -p "$(dirname "$WINEPREFIX")"
  flock "$WINEPREFIX.lock" sh -c '
    [ -f "$WINEPREFIX/system.reg" ] && [ -f "$0" ] && exit 0
    wineserver -k 2>/dev/null; rm -rf "$WINEPREFIX"
    wineboot -i && wineserver -w' "$ready" >/dev/null 2>&1
fi
exec wine "$@"
