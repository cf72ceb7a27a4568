#!/bin/sh
# Runs one Windows test program under 64-bit Wine. The prefix lives where
# the test preset says (the build tree) or in a private folder, never in
# ~/.wine; the first run creates it once, even when tests start in parallel.
: "${WINEDEBUG:=-all}"
: "${WINEPREFIX:=${QNUTIL_WINEPREFIX:-$HOME/.qnutil-wine}}"
export WINEDEBUG WINEPREFIX
if [ ! -f "$WINEPREFIX/system.reg" ]; then
  mkdir -p "$(dirname "$WINEPREFIX")"
  flock "$WINEPREFIX.lock" sh -c '[ -f "$WINEPREFIX/system.reg" ] || { wineboot -i && wineserver -w; }' >/dev/null 2>&1
fi
exec wine "$@"
